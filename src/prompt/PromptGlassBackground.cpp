// SPDX-License-Identifier: MIT
#include "prompt/PromptGlassBackground.h"

#include "look/Look.h"

#include <QPainter>
#include <QPainterPath>

using Behind = FloatingWindow::Behind;

void PromptGlassBackground::paint(QPainter &painter, const QPainterPath &shape, Behind behind) const
{
    painter.setRenderHint(QPainter::Antialiasing);
    if (behind == Behind::Opaque) {
        paintMaterial(painter, shape);
    } else {
        paintGlass(painter, shape, behind);
    }
}

void PromptGlassBackground::paintGlass(QPainter &painter, const QPainterPath &shape,
                                       Behind behind) const
{
    const QColor glass = isLight() ? QColor(0xF6F6F6) : QColor(0x28282A);
    painter.fillPath(shape, atOpacity(glass, behind == Behind::Blurred ? 0.82 : 0.90));
    if (isLight()) {
        painter.fillPath(shape, atOpacity(Qt::white, 0.08));
    }
}

void PromptGlassBackground::paintMaterial(QPainter &painter, const QPainterPath &shape) const
{
    painter.fillPath(shape, isLight() ? QColor(0xECECEC) : QColor(0x28282A));
    painter.fillPath(shape, atOpacity(isLight() ? QColor(0xF6F6F6) : QColor(0x3A3A3C), 0.52));
    if (isLight()) {
        painter.fillPath(shape, atOpacity(Qt::white, 0.06));
    }
}
