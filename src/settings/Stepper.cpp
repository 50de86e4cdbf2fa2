// SPDX-License-Identifier: MIT
#include "settings/Stepper.h"

#include "look/Accessible.h"
#include "look/ControlStyle.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyleOption>
#include <QWheelEvent>

namespace
{
constexpr int faceMargin = ControlStyle::faceMargin;
constexpr int stepperWidth = 15;
constexpr int wheelNotch = 120;
} // namespace

StepButton::StepButton(Arrow arrow, const QString &name, QWidget *parent)
    : QAbstractButton(parent)
    , m_arrow(arrow)
{
    setAccessibleName(name);
    setAutoRepeat(true);
    setFocusPolicy(Qt::NoFocus);
}

void StepButton::paintEvent(QPaintEvent *)
{
    constexpr qreal halfWidth = 3;
    constexpr qreal height = 5;
    const qreal direction = m_arrow == Arrow::Up ? -1 : 1;
    const QPointF centre = QRectF(rect()).center();
    const QPointF tip = centre + QPointF(0, direction * height / 2);
    const qreal base = centre.y() - direction * height / 2;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    QColor color = palette().color(QPalette::ButtonText);
    if (isDown()) {
        color.setAlphaF(color.alphaF() / 2);
    }
    painter.setBrush(color);
    painter.drawPolygon(QPolygonF(
        {tip, QPointF(centre.x() - halfWidth, base), QPointF(centre.x() + halfWidth, base)}));
}

Stepper::Stepper(std::function<void(int)> stepBy, QWidget *parent)
    : QWidget(parent)
    , m_stepBy(std::move(stepBy))
{
    Accessible::setRole(*this, QAccessible::SpinBox);
    setFocusPolicy(Qt::TabFocus);
    setFixedSize(stepperWidth + 2 * faceMargin, ControlStyle::outerHeight);
    const int half = ControlStyle::controlHeight / 2;
    auto *const up = new StepButton(StepButton::Arrow::Up, tr("Increase"), this);
    auto *const down = new StepButton(StepButton::Arrow::Down, tr("Decrease"), this);
    up->setGeometry(faceMargin, faceMargin, stepperWidth, half);
    down->setGeometry(faceMargin, faceMargin + half, stepperWidth, half);
    connect(up, &QAbstractButton::clicked, this, [this] { m_stepBy(1); });
    connect(down, &QAbstractButton::clicked, this, [this] { m_stepBy(-1); });
}

void Stepper::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Up) {
        m_stepBy(1);
    } else if (event->key() == Qt::Key_Down) {
        m_stepBy(-1);
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
        m_stepBy(1);
    }
    for (; m_wheelRest <= -wheelNotch; m_wheelRest += wheelNotch) {
        m_stepBy(-1);
    }
}

void Stepper::paintEvent(QPaintEvent *)
{
    QStyleOption option;
    option.initFrom(this);
    QPainter painter(this);
    ControlStyle::drawFace(painter, option);
}
