// SPDX-License-Identifier: MIT
#pragma once

/// The height of the writing box, from that of the text in it; all in logical pixels.
namespace EditorHeight
{
inline constexpr double minimum = 52;
inline constexpr double maximum = 320;
/// What the box adds to its text: 16 above and 16 below.
inline constexpr double chrome = 32;

/// A whole number from minimum to maximum.
[[nodiscard]] double forText(double textHeight);

/// Whether @p measured is worth writing over @p current.
[[nodiscard]] bool differs(double measured, double current);
} // namespace EditorHeight
