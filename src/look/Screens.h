// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

/// The area without panels on the screen with the pointer, or on the primary screen if the pointer
/// is on none. In logical pixels.
[[nodiscard]] QRect availableAreaWithPointer();

/// The top left corner of a window of @p size that is centred horizontally in @p area, with the
/// fraction @p above of the free height above it. A window that is too large is placed at the
/// area's top left corner, so that its title bar is always visible.
[[nodiscard]] QPoint placeIn(const QRect &area, const QSize &size, qreal above);
