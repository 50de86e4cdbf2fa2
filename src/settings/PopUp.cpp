// SPDX-License-Identifier: MIT
#include "settings/PopUp.h"

#include "look/Accessible.h"
#include "platform/Compositor.h"

#include <QAbstractItemView>
#include <QAccessibleWidget>

namespace
{
class AccessiblePopUp final : public QAccessibleWidget
{
public:
    explicit AccessiblePopUp(PopUp *popUp)
        : QAccessibleWidget(popUp, QAccessible::ComboBox)
    {
    }

    [[nodiscard]] QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Value ? popUp().currentText() : QAccessibleWidget::text(kind);
    }

    // The list, while it is open.
    [[nodiscard]] int childCount() const override { return popUp().view()->isVisible() ? 1 : 0; }
    [[nodiscard]] QAccessibleInterface *child(int index) const override
    {
        return index >= 0 && index < childCount()
            ? QAccessible::queryAccessibleInterface(popUp().view())
            : nullptr;
    }
    int indexOfChild(const QAccessibleInterface *child) const override
    {
        return childCount() > 0 && child->object() == popUp().view() ? 0 : -1;
    }

    [[nodiscard]] QStringList actionNames() const override
    {
        return QStringList{showMenuAction(), pressAction()} + QAccessibleWidget::actionNames();
    }

    void doAction(const QString &name) override
    {
        if (name == showMenuAction() || name == pressAction()) {
            popUp().showPopup();
        } else {
            QAccessibleWidget::doAction(name);
        }
    }

private:
    [[nodiscard]] PopUp &popUp() const { return *qobject_cast<PopUp *>(widget()); }
};

QAccessibleInterface *makeAccessible(const QString &, QObject *object)
{
    auto *const popUp = qobject_cast<PopUp *>(object);
    return popUp ? new AccessiblePopUp(popUp) : nullptr;
}
} // namespace

PopUp::PopUp(const QString &accessibleName, const Compositor &compositor, QWidget *parent)
    : QComboBox(parent)
    , m_compositor(compositor)
{
    Accessible::setFactory(*this, makeAccessible);
    setAccessibleName(accessibleName);
    view()->setAccessibleName(accessibleName);
    connect(this, &QComboBox::currentIndexChanged, this, &PopUp::reportChoice);
}

void PopUp::reportChoice(int index)
{
    view()->setCurrentIndex(model()->index(index, modelColumn(), rootModelIndex()));
    // Screen readers look for a pop-up's value in its list, which does not exist while it is
    // closed.
    Accessible::describe(*this, currentText());
    // The open list reports the change itself.
    if (hasFocus() && !view()->isVisible()) {
        reportFocus(index);
    }
}

void PopUp::reportFocus(int index)
{
    // Screen readers speak the item that gets the focus.
    QAccessibleEvent event(view(), QAccessible::Focus);
    event.setChild(index);
    QAccessible::updateAccessibility(&event);
}

void PopUp::setListPalette(const QPalette &palette)
{
    view()->window()->setPalette(palette);
    // The menu that is drawn behind the list shows through it.
    QPalette clear = palette;
    clear.setColor(QPalette::Base, Qt::transparent);
    clear.setColor(QPalette::Window, Qt::transparent);
    view()->setPalette(clear);
}

void PopUp::showPopup()
{
    QWidget *const list = view()->window();
    list->setAttribute(Qt::WA_TranslucentBackground, m_compositor.isRunning());
    // The toolkit would also report the list's parts that are not items, and print warnings.
    Accessible::quietly([this] { QComboBox::showPopup(); });
    // Aligns the names in the list with the name in the closed pop-up.
    constexpr int nameIndent = 20;
    list->setGeometry(list->geometry().adjusted(-nameIndent, 0, 0, 0));
    reportFocus(currentIndex());
}
