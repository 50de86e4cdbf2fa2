// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>

/// The system font at a size in logical pixels.
[[nodiscard]] QFont systemFont(int pixelSize, QFont::Weight weight = QFont::Normal);

/// Sizes in logical pixels.
namespace FontSizes
{
inline constexpr int note = 18;
inline constexpr int detail = 14;
inline constexpr int body = 13;
inline constexpr int headline = 13;
inline constexpr int explanation = 12;
inline constexpr int subheadline = 11;
} // namespace FontSizes
