// SPDX-License-Identifier: MIT
#include "look/Translucency.h"

#include <QPainter>

void Translucency::clear(QPainter &painter, const QRect &area)
{
    painter.setCompositionMode(QPainter::CompositionMode_Clear);
    painter.fillRect(area, Qt::transparent);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
}
