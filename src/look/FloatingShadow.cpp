// SPDX-License-Identifier: MIT
#include "look/FloatingShadow.h"

#include "look/Look.h"
#include "look/Shadow.h"
#include "look/Squircle.h"

#include <QPainter>

namespace
{
void fillRing(QPainter &painter, const QRectF &outside, qreal outerRadius, const QColor &color)
{
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(squirclePath(outside, outerRadius)
                         - squirclePath(outside.adjusted(1, 1, -1, -1), outerRadius - 1),
                     color);
}

QColor shadeOfRim(ColorScheme scheme)
{
    return atOpacity(Qt::black, scheme == ColorScheme::Light ? 0.16 : 0.55);
}

/// The light line inside the rim.
QColor lightOfRim(ColorScheme scheme)
{
    return atOpacity(Qt::white, scheme == ColorScheme::Light ? 0.60 : 0.14);
}
} // namespace

void FloatingShadow::paint(QPainter &painter, const QRectF &frame, qreal radius, ColorScheme scheme)
{
    const bool isLight = scheme == ColorScheme::Light;
    Shadow{.offsetY = 12, .blur = 36, .color = atOpacity(Qt::black, isLight ? 0.28 : 0.45)}.paint(
        painter, frame, radius);
    fillRing(painter, frame.adjusted(-1, -1, 1, 1), radius + 1,
             atOpacity(isLight ? Qt::black : Qt::white, 0.10));
}

void FloatingShadow::paintRoundRim(QPainter &painter, const QRectF &frame, qreal radius,
                                   ColorScheme scheme)
{
    fillRing(painter, frame.adjusted(1, 1, -1, -1), radius - 1, lightOfRim(scheme));
    fillRing(painter, frame, radius, shadeOfRim(scheme));
}

void FloatingShadow::paintRim(QPainter &painter, const QRectF &frame, ColorScheme scheme)
{
    const auto draw = [&painter](const QRectF &rim, const QColor &color) {
        painter.setPen(color);
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(rim.adjusted(0.5, 0.5, -0.5, -0.5));
    };
    draw(frame.adjusted(1, 1, -1, -1), lightOfRim(scheme));
    draw(frame, shadeOfRim(scheme));
}
