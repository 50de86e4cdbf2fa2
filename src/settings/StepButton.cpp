// SPDX-License-Identifier: MIT
#include "settings/StepButton.h"

#include <QPainter>

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
