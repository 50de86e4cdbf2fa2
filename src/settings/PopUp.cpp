// SPDX-License-Identifier: MIT
#include "settings/PopUp.h"

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

PopUp::PopUp(const QString &accessibleName, QWidget *parent)
    : QComboBox(parent)
{
    QAccessible::installFactory(makeAccessible);
    setAccessibleName(accessibleName);
    // Not everything that reads the screen asks a pop-up for its value.
    connect(this, &QComboBox::currentTextChanged, this, &QWidget::setAccessibleDescription);
}
