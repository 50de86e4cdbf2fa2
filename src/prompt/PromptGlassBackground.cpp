// SPDX-License-Identifier: MIT
#include "prompt/PromptGlassBackground.h"

#include "look/Look.h"
#include "look/Squircle.h"

#include <QPainter>

void PromptGlassBackground::paint(QPainter &painter, const QRectF &frame, Behind behind)
{
    painter.setRenderHint(QPainter::Antialiasing);
    if (behind == Behind::Opaque) {
        paintMaterial(painter, frame);
    } else {
        paintGlass(painter, frame, behind);
    }
}

void PromptGlassBackground::paintGlass(QPainter &painter, const QRectF &frame, Behind behind)
{
    m_shadow.paint(
        painter, frame, cornerRadius,
        {.offsetY = 12, .blur = 36, .color = atOpacity(Qt::black, isLight() ? 0.28 : 0.45)});
    paintRim(painter, frame);
    const QColor glass = isLight() ? QColor(0xF6F6F6) : QColor(0x28282A);
    const QPainterPath shape = squirclePath(frame, cornerRadius);
    painter.fillPath(shape, atOpacity(glass, behind == Behind::Blurred ? 0.82 : 0.90));
    if (isLight()) {
        painter.fillPath(shape, atOpacity(Qt::white, 0.08));
    }
}

void PromptGlassBackground::paintRim(QPainter &painter, const QRectF &frame) const
{
    const QPainterPath outside = squirclePath(frame.adjusted(-1, -1, 1, 1), cornerRadius + 1);
    painter.fillPath(outside - squirclePath(frame, cornerRadius),
                     atOpacity(isLight() ? Qt::black : Qt::white, 0.10));
}

void PromptGlassBackground::paintMaterial(QPainter &painter, const QRectF &frame) const
{
    painter.fillRect(frame, isLight() ? QColor(0xECECEC) : QColor(0x28282A));
    painter.fillRect(frame, atOpacity(isLight() ? QColor(0xF6F6F6) : QColor(0x3A3A3C), 0.52));
    if (isLight()) {
        painter.fillRect(frame, atOpacity(Qt::white, 0.06));
    }
}
