// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

/// What panels leave free of the screen that has the pointer, or of the primary one where no screen
/// has it. Logical pixels.
[[nodiscard]] QRect availableAreaWithPointer();

/// Where a window of @p size is in the middle of that area. One that is too large for it begins at
/// its top left corner, so that the title bar is always there.
[[nodiscard]] QPoint centredOnScreenWithPointer(const QSize &size);
