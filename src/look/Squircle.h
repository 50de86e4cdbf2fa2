// SPDX-License-Identifier: MIT
#pragma once

#include <QPainterPath>

/// A rectangle with continuous corners: the curvature of each grows steadily from nothing at the
/// straight edge to its greatest at the diagonal, where the corner passes through the same point
/// as a circle's arc of @p radius (logical pixels) would.
[[nodiscard]] QPainterPath squirclePath(const QRectF &rect, qreal radius);
