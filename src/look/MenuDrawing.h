// SPDX-License-Identifier: MIT
#pragma once

#include <QSize>

class QPainter;
class QStyleOption;
class QStyleOptionMenuItem;
class QWidget;

/// Draws the menus of our windows and the open list of a pop-up, in the colours of their palette.
namespace MenuDrawing
{
/// The margin around the rows, in logical pixels.
inline constexpr int padding = 5;

/// The background of a whole menu, with round corners if @p widget is translucent.
void drawPanel(QPainter &painter, const QStyleOption &option, const QWidget *widget);
void drawItem(QPainter &painter, const QStyleOptionMenuItem &option, const QWidget *widget,
              bool underlinesMnemonic);
/// @p contents is the size of the item's text without its shortcut.
[[nodiscard]] QSize itemSize(const QStyleOptionMenuItem &option, const QSize &contents);
} // namespace MenuDrawing
