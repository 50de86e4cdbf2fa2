// SPDX-License-Identifier: MIT
#include "prompt/CloseButton.h"

#include "look/ControlStyle.h"
#include "look/Look.h"

#include <QPainter>

CloseButton::CloseButton(QWidget *parent)
    : QAbstractButton(parent)
{
    setAccessibleName(tr("Close"));
    setFixedSize(side, side);
    // A click must not move keyboard focus out of the note; Control-Tab can.
    setFocusPolicy(Qt::TabFocus);
}

bool CloseButton::showsCross() const
{
    return underMouse() || hasFocus() || isDown();
}

void CloseButton::paintEvent(QPaintEvent *)
{
    const QColor red(0xFF5F57);
    QRectF circle(0, 0, diameter, diameter);
    circle.moveCenter(QRectF(rect()).center());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (hasFocus()) {
        constexpr qreal ring = ControlStyle::faceMargin;
        painter.setPen(Qt::NoPen);
        painter.setBrush(palette().color(Look::focusRingRole));
        painter.drawEllipse(circle.adjusted(-ring, -ring, ring, ring));
    }
    // The outline lies inside the circle.
    constexpr qreal outline = 0.5;
    constexpr qreal inset = outline / 2;
    painter.setPen(QPen(red.darker(115), outline));
    painter.setBrush(isDown() ? red.darker(125) : red);
    painter.drawEllipse(circle.adjusted(inset, inset, -inset, -inset));
    if (showsCross()) {
        constexpr qreal arm = 2.4;
        constexpr qreal crossWidth = 1.2;
        const QPointF centre = circle.center();
        painter.setPen(QPen(QColor(0x7E0508), crossWidth, Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(centre - QPointF(arm, arm), centre + QPointF(arm, arm));
        painter.drawLine(centre - QPointF(arm, -arm), centre + QPointF(arm, -arm));
    }
}

void CloseButton::enterEvent(QEnterEvent *event)
{
    QAbstractButton::enterEvent(event);
    update();
}

void CloseButton::leaveEvent(QEvent *event)
{
    QAbstractButton::leaveEvent(event);
    update();
}
