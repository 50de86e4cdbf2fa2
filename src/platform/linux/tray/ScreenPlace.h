// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>

#include <optional>

/// The place that other programs give in pixels of the whole desktop, in the toolkit's logical
/// pixels; nothing when it is on no screen.
[[nodiscard]] std::optional<QPoint> logicalPlace(const QPoint &nativePlace);
