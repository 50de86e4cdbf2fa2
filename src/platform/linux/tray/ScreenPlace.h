// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>

#include <optional>

/// Converts a position from other programs, in pixels of the whole desktop, to the toolkit's
/// logical pixels. nullopt if it is not on any screen.
[[nodiscard]] std::optional<QPoint> logicalPlace(const QPoint &nativePlace);
