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
    connect(this, &QComboBox::currentIndexChanged, this, &PopUp::tellChoice);
}

void PopUp::tellChoice(int index)
{
    view()->setCurrentIndex(model()->index(index, modelColumn(), rootModelIndex()));
    // A pop-up's value is looked for in its list, which is not there while it is closed.
    Accessible::describe(*this, currentText());
    // The open list tells of it itself.
    if (hasFocus() && !view()->isVisible()) {
        tellFocus(index);
    }
}

void PopUp::tellFocus(int index)
{
    // Screen readers speak the item that gets the focus.
    QAccessibleEvent event(view(), QAccessible::Focus);
    event.setChild(index);
    QAccessible::updateAccessibility(&event);
}

void PopUp::setListPalette(const QPalette &palette)
{
    view()->window()->setPalette(palette);
    // The menu behind it is seen through the list.
    QPalette clear = palette;
    clear.setColor(QPalette::Base, Qt::transparent);
    clear.setColor(QPalette::Window, Qt::transparent);
    view()->setPalette(clear);
}

void PopUp::showPopup()
{
    QWidget *const list = view()->window();
    list->setAttribute(Qt::WA_TranslucentBackground, m_compositor.isRunning());
    // Of the list's parts, which are no items, the toolkit would tell too, and complain.
    Accessible::quietly([this] { QComboBox::showPopup(); });
    // The names stand where the closed pop-up shows the chosen one.
    constexpr int overhang = 20;
    list->setGeometry(list->geometry().adjusted(-overhang, 0, 0, 0));
    tellFocus(currentIndex());
}
