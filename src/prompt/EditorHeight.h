// SPDX-License-Identifier: MIT
#pragma once

/// The height of the writing box, calculated from that of its text; all in logical pixels.
namespace EditorHeight
{
inline constexpr double minimum = 52;
inline constexpr double maximum = 320;
/// What the box adds to its text: its padding, 16 above and 16 below.
inline constexpr double chrome = 32;

/// A whole number from minimum to maximum.
[[nodiscard]] double forText(double textHeight);

/// Whether @p measured differs enough from @p current (by more than half a pixel) to resize the
/// box.
[[nodiscard]] bool differs(double measured, double current);
} // namespace EditorHeight
