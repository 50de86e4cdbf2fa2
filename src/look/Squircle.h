// SPDX-License-Identifier: MIT
#pragma once

#include <QPainterPath>

/// A rectangle with continuous corners: the curvature of each corner increases from zero at the
/// straight edge to its maximum at the diagonal, where the corner passes through the same point as
/// a circular arc of @p radius (logical pixels).
[[nodiscard]] QPainterPath squirclePath(const QRectF &rect, qreal radius);
