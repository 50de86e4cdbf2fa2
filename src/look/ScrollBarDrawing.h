// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>
#include <QStyle>

class QPainter;
class QStyleOptionSlider;

/// How ControlStyle draws scroll bars: a thin handle over the content, without buttons or groove.
namespace ScrollBarDrawing
{
/// The handle and its distance from the edge, in logical pixels.
constexpr int extent = 10;

void draw(QPainter &painter, const QStyleOptionSlider &option);
/// Where a part is, in the coordinates of the scroll bar; empty for the buttons.
[[nodiscard]] QRect part(const QStyleOptionSlider &option, QStyle::SubControl part);
} // namespace ScrollBarDrawing
