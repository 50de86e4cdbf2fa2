// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QIcon>
#include <QRectF>

class QPainter;

/// A filled dot inside two concentric rings.
namespace MenuBarIcon
{
/// The design's size in logical pixels; every other length is a fraction of it.
inline constexpr qreal size = 18;

/// Draws the symbol in one colour, centred in @p rect. It keeps its size whatever the rectangle's.
void draw(QPainter &painter, const QRectF &rect, const QColor &color);

/// The same symbol as an SVG file that a panel can recolour. Rings are filled shapes, since GTK
/// panels replace the fill of whatever they find; KDE's replace the style sheet of that name.
[[nodiscard]] QByteArray svg();

/// The symbol as an icon: the name of the installed file, by which a panel that can recolour finds
/// it, and pictures in @p color for any other, which the symbol fills at every size.
[[nodiscard]] QIcon icon(const QColor &color);
} // namespace MenuBarIcon
