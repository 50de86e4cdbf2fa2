// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>

/// What panels leave free of the screen that has the pointer, or of the primary one where no screen
/// has it. Logical pixels.
[[nodiscard]] QRect availableAreaWithPointer();
