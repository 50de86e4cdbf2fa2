// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QIcon>
#include <QRectF>

class QPainter;

/// A filled dot inside two concentric rings.
namespace MenuBarIcon
{
/// The design size in logical pixels; all other lengths are fractions of it.
inline constexpr qreal size = 18;

/// Draws the symbol at its design size in one colour, centred in @p rect.
void draw(QPainter &painter, const QRectF &rect, const QColor &color);

/// The same symbol as an SVG file that panels can recolour. The rings are filled shapes, because
/// GTK panels replace the fill of every shape; KDE panels replace the style sheet
/// "current-color-scheme".
[[nodiscard]] QByteArray svg();

/// The symbol as an icon: the name of the installed file, for panels that can recolour it, and
/// pixmaps in @p color for other panels, filled by the symbol at any size.
[[nodiscard]] QIcon icon(const QColor &color);
} // namespace MenuBarIcon
