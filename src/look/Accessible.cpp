// SPDX-License-Identifier: MIT
#include "look/Accessible.h"

#include <QAccessibleWidget>
#include <QApplication>
#include <QTimer>
#include <QVariant>
#include <QWidget>

#include <chrono>

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
        // The toolkit also reports widgets as focused if their focus proxy has focus.
        state.focused = QApplication::focusWidget() == widget();
        if (role() == QAccessible::Whitespace) {
            state.invisible = true;
        }
        return state;
    }

    [[nodiscard]] QAccessibleInterface *parent() const override
    {
        return role() == QAccessible::Notification ? QAccessible::queryAccessibleInterface(qApp)
                                                   : QAccessibleWidget::parent();
    }
};

#if QT_VERSION < QT_VERSION_CHECK(6, 8, 0)
// How long the notification exists: screen readers request its text only when they get to it.
constexpr auto notificationTime = std::chrono::seconds(10);

/// Screen readers speak a notification when it appears. This one is invisible, and its accessible
/// parent is not a window, because screen readers would first read that window out again.
class Notification final : public QWidget
{
public:
    Notification(QWidget *window, const QString &text)
        : QWidget(window, Qt::ToolTip)
    {
        Accessible::setRole(*this, QAccessible::Notification);
        Accessible::describe(*this, text);
        QTimer::singleShot(notificationTime, this, &QObject::deleteLater);
    }
};
#endif

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
    widget.setProperty(roleProperty, static_cast<int>(role));
    setFactory(widget, withRole);
}

void Accessible::setFactory(QWidget &widget, QAccessible::InterfaceFactory factory)
{
    QAccessible::installFactory(factory); // later calls do nothing
    // Newer Qt creates and caches a widget's interface as soon as it has a parent.
    QAccessible::deleteAccessibleInterface(
        QAccessible::uniqueId(QAccessible::queryAccessibleInterface(&widget)));
}

void Accessible::hide(QWidget &widget)
{
    setRole(widget, QAccessible::Whitespace);
}

void Accessible::describe(QWidget &widget, const QString &description)
{
    // Older Qt versions report a change with the widget where screen readers expect the text, which
    // makes them fail.
    quietly([&] { widget.setAccessibleDescription(description); });
}

void Accessible::quietly(const std::function<void()> &action)
{
    const QAccessible::UpdateHandler before
        = QAccessible::installUpdateHandler([](QAccessibleEvent *) {});
    action();
    QAccessible::installUpdateHandler(before);
}

void Accessible::announce(QWidget &window, const QString &text)
{
    if (!QAccessible::isActive()) {
        return;
    }
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
    QAccessibleAnnouncementEvent event(&window, text);
#else
    // A new object each time: of several events from one object, only the last is spoken.
    QAccessibleEvent event(new Notification(&window, text), QAccessible::ObjectShow);
#endif
    QAccessible::updateAccessibility(&event);
}
