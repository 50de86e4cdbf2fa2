// SPDX-License-Identifier: MIT
#include "look/Squircle.h"

#include <QtMath>

#include <array>
#include <cmath>

namespace
{
// Each corner is a quarter of the superellipse |x|^n + |y|^n = 1. It occupies "reach" times as much
// of the edges as an arc; the exponent follows from that and from the point on the diagonal.
constexpr qreal reach = 1.6;
const qreal diagonalGap = M_SQRT2 - 1;
const qreal exponent = -M_LN2 / std::log(1 - diagonalGap / (M_SQRT2 * reach));
constexpr int stepsPerCorner = 24;

/// A point of a corner that occupies 1 of each edge, as distances from the corner.
struct CornerPoint {
    qreal alongIn;
    qreal alongOut;
};

using Corner = std::array<CornerPoint, stepsPerCorner + 1>;

Corner unitCorner()
{
    Corner corner{};
    for (int step = 0; step <= stepsPerCorner; ++step) {
        const qreal angle = M_PI_2 * step / stepsPerCorner;
        corner.at(static_cast<size_t>(step))
            = {.alongIn = 1 - std::pow(std::sin(angle), 2 / exponent),
               .alongOut = 1 - std::pow(std::cos(angle), 2 / exponent)};
    }
    return corner;
}

/// Adds the corner at @p corner, from the edge in direction @p in to the edge in direction @p out
/// (unit vectors that point away from the corner).
void addCorner(QPainterPath &path, const QPointF &corner, const QPointF &in, const QPointF &out,
               qreal extent)
{
    static const Corner points = unitCorner();
    for (const auto &[alongIn, alongOut] : points) {
        const QPointF point = corner + (in * alongIn + out * alongOut) * extent;
        if (path.elementCount() == 0) {
            path.moveTo(point);
        } else {
            path.lineTo(point);
        }
    }
}
} // namespace

QPainterPath squirclePath(const QRectF &rect, qreal radius)
{
    const qreal extent = qMin(radius * reach, qMin(rect.width(), rect.height()) / 2);
    const QPointF right(1, 0);
    const QPointF down(0, 1);
    QPainterPath path;
    addCorner(path, rect.topLeft(), down, right, extent);
    addCorner(path, rect.topRight(), -right, down, extent);
    addCorner(path, rect.bottomRight(), -down, -right, extent);
    addCorner(path, rect.bottomLeft(), right, -down, extent);
    path.closeSubpath();
    return path;
}
