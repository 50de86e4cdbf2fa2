// SPDX-License-Identifier: MIT
#pragma once

#include <QMargins>
#include <QRectF>

class QColor;
class QPainter;
struct Look;
struct Rim;

/// The shadow and the rim that make a floating frame stand out from anything behind it.
namespace FloatingShadow
{
/// How far the shadow is visible beyond each edge of the frame, in logical pixels.
inline constexpr QMargins margins{54, 42, 54, 66};

/// Fills @p frame with @p face and draws a soft shadow and a hairline around it.
void paint(QPainter &painter, const QRectF &frame, qreal radius, const QColor &face,
           const Look &look);
/// Draw a rim just inside @p frame: with round corners for composited windows, else with square
/// ones.
void paintRoundRim(QPainter &painter, const QRectF &frame, qreal radius, const Rim &rim);
void paintRim(QPainter &painter, const QRectF &frame, const Rim &rim);
} // namespace FloatingShadow
