// SPDX-License-Identifier: MIT
#include "look/Accessible.h"

#include <QAccessibleWidget>
#include <QApplication>
#include <QVariant>
#include <QWidget>

namespace
{
constexpr auto roleProperty = "tovlaAccessibleRole";

class WidgetWithRole final : public QAccessibleWidget
{
public:
    using QAccessibleWidget::QAccessibleWidget;

    [[nodiscard]] QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        // The toolkit says so of every widget whose focus proxy has the focus, too.
        state.focused = QApplication::focusWidget() == widget();
        if (role() == QAccessible::Whitespace) {
            state.invisible = true;
        }
        return state;
    }
};

QAccessibleInterface *withRole(const QString &, QObject *object)
{
    const QVariant role = object ? object->property(roleProperty) : QVariant();
    return role.isValid() ? new WidgetWithRole(qobject_cast<QWidget *>(object),
                                               static_cast<QAccessible::Role>(role.toInt()))
                          : nullptr;
}
} // namespace

void Accessible::setRole(QWidget &widget, QAccessible::Role role)
{
    QAccessible::installFactory(withRole); // a second time, it does nothing
    widget.setProperty(roleProperty, static_cast<int>(role));
    // Newer Qt tells of a widget as soon as it has a parent, and remembers what it told.
    QAccessible::deleteAccessibleInterface(
        QAccessible::uniqueId(QAccessible::queryAccessibleInterface(&widget)));
}

void Accessible::hide(QWidget &widget)
{
    setRole(widget, QAccessible::Whitespace);
}
