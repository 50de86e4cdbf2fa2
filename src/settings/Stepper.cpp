// SPDX-License-Identifier: MIT
#include "settings/Stepper.h"

#include "look/Accessible.h"
#include "look/ControlStyle.h"
#include "settings/StepButton.h"

#include <QAccessibleWidget>
#include <QKeyEvent>
#include <QPainter>
#include <QStyleOption>
#include <QWheelEvent>

#include <algorithm>

namespace
{
constexpr int faceMargin = ControlStyle::faceMargin;
constexpr int stepperWidth = 15;
// In eighths of a degree, like QWheelEvent::angleDelta().
constexpr int wheelNotch = 120;

class AccessibleStepper final : public QAccessibleWidget, public QAccessibleValueInterface
{
public:
    explicit AccessibleStepper(Stepper *stepper)
        : QAccessibleWidget(stepper, QAccessible::SpinBox)
    {
    }

    void *interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ValueInterface ? static_cast<QAccessibleValueInterface *>(this)
                                                   : QAccessibleWidget::interface_cast(type);
    }

    [[nodiscard]] QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Value ? QString::number(stepper().value())
                                          : QAccessibleWidget::text(kind);
    }

    [[nodiscard]] QVariant currentValue() const override { return stepper().value(); }
    void setCurrentValue(const QVariant &value) override
    {
        stepper().request(qRound(value.toDouble()));
    }
    [[nodiscard]] QVariant minimumValue() const override { return stepper().range().minimum; }
    [[nodiscard]] QVariant maximumValue() const override { return stepper().range().maximum; }
    [[nodiscard]] QVariant minimumStepSize() const override { return stepper().range().step; }

private:
    [[nodiscard]] Stepper &stepper() const { return *qobject_cast<Stepper *>(widget()); }
};

QAccessibleInterface *makeAccessible(const QString &, QObject *object)
{
    auto *const stepper = qobject_cast<Stepper *>(object);
    return stepper ? new AccessibleStepper(stepper) : nullptr;
}
} // namespace

Stepper::Stepper(const Range &range, Callbacks callbacks, QWidget *parent)
    : QWidget(parent)
    , m_range(range)
    , m_callbacks(std::move(callbacks))
{
    Accessible::setFactory(*this, makeAccessible);
    setFocusPolicy(Qt::TabFocus);
    setFixedSize(stepperWidth + 2 * faceMargin, ControlStyle::outerHeight);
    const int half = ControlStyle::controlHeight / 2;
    auto *const up = new StepButton(StepButton::Arrow::Up, tr("Increase"), this);
    auto *const down = new StepButton(StepButton::Arrow::Down, tr("Decrease"), this);
    up->setGeometry(faceMargin, faceMargin, stepperWidth, half);
    down->setGeometry(faceMargin, faceMargin + half, stepperWidth, half);
    connect(up, &QAbstractButton::clicked, this, [this] { stepBy(1); });
    connect(down, &QAbstractButton::clicked, this, [this] { stepBy(-1); });
}

void Stepper::setValue(int value)
{
    if (value != m_value) {
        m_value = value;
        QAccessibleValueChangeEvent event(this, value);
        QAccessible::updateAccessibility(&event);
    }
}

void Stepper::request(int value)
{
    const int before = m_value;
    m_callbacks.set(std::clamp(value, m_range.minimum, m_range.maximum));
    announceUnlessFocused(before);
}

void Stepper::stepBy(int direction)
{
    const int before = m_value;
    m_callbacks.stepBy(direction);
    announceUnlessFocused(before);
}

void Stepper::announceUnlessFocused(int before)
{
    // Screen readers speak the value of the focused widget only, and clicking an arrow does not
    // focus the stepper.
    if (m_value != before && !hasFocus()) {
        Accessible::announce(*window(), QString::number(m_value));
    }
}

void Stepper::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Up) {
        stepBy(1);
    } else if (event->key() == Qt::Key_Down) {
        stepBy(-1);
    } else {
        QWidget::keyPressEvent(event);
    }
}

void Stepper::wheelEvent(QWheelEvent *event)
{
    if (!hasFocus()) {
        event->ignore();
        return;
    }
    m_wheelRest += event->angleDelta().y();
    for (; m_wheelRest >= wheelNotch; m_wheelRest -= wheelNotch) {
        stepBy(1);
    }
    for (; m_wheelRest <= -wheelNotch; m_wheelRest += wheelNotch) {
        stepBy(-1);
    }
}

void Stepper::paintEvent(QPaintEvent *)
{
    QStyleOption option;
    option.initFrom(this);
    QPainter painter(this);
    ControlStyle::drawFace(painter, option);
}
