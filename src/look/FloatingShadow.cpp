// SPDX-License-Identifier: MIT
#include "look/FloatingShadow.h"

#include "look/ExtendedPicture.h"
#include "look/Look.h"
#include "look/Shadow.h"
#include "look/Squircle.h"

#include <QPainter>
#include <QPainterPath>

namespace
{
void fillRing(QPainter &painter, const QRectF &outside, qreal outerRadius, const QColor &color)
{
    painter.setRenderHint(QPainter::Antialiasing);
    // The inner shape is left out by the odd-even rule, which is far cheaper than subtracting it.
    QPainterPath ring = squirclePath(outside, outerRadius);
    ring.addPath(squirclePath(outside.adjusted(1, 1, -1, -1), outerRadius - 1));
    painter.fillPath(ring, color);
}
} // namespace

void FloatingShadow::paint(QPainter &painter, const QRectF &frame, qreal radius, const QColor &face,
                           const Look &look)
{
    const Shadow shadow{
        .offsetY = 12, .blur = 36, .color = atOpacity(Qt::black, look.isLight() ? 0.28 : 0.45)};
    const QString name = QStringLiteral("frame %1 %2 %3 %4")
                             .arg(shadow.color.name(QColor::HexArgb))
                             .arg(look.shadowRim.name(QColor::HexArgb))
                             .arg(face.name(QColor::HexArgb))
                             .arg(radius);
    ExtendedPicture{.name = name, .around = shadow.margins(), .end = shadow.end(radius)}.paint(
        painter, frame, [&](QPainter &picture, const QRectF &small) {
            shadow.draw(picture, small, radius, face);
            fillRing(picture, small.adjusted(-1, -1, 1, 1), radius + 1, look.shadowRim);
        });
}

void FloatingShadow::paintRoundRim(QPainter &painter, const QRectF &frame, qreal radius,
                                   const Rim &rim)
{
    fillRing(painter, frame.adjusted(1, 1, -1, -1), radius - 1, rim.light);
    fillRing(painter, frame, radius, rim.shade);
}

void FloatingShadow::paintRim(QPainter &painter, const QRectF &frame, const Rim &rim)
{
    painter.setRenderHint(QPainter::Antialiasing); // or translucent corners are drawn twice
    const auto draw = [&painter](const QRectF &edge, const QColor &color) {
        painter.setPen(color);
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(edge.adjusted(0.5, 0.5, -0.5, -0.5));
    };
    draw(frame.adjusted(1, 1, -1, -1), rim.light);
    draw(frame, rim.shade);
}
