// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ColorScheme.h"

#include <QString>

#include <array>
#include <optional>

/// How the prompt and the settings look: as the system does, or always one way.
enum class ThemePreference { system, light, dark };

/// In the order in which they are offered.
inline constexpr std::array allThemePreferences{ThemePreference::system, ThemePreference::light,
                                                ThemePreference::dark};

/// The word that is saved: "system", "light" or "dark".
[[nodiscard]] QString rawValue(ThemePreference theme);

/// The scheme that the content of a window is forced into; nothing where it follows the system.
[[nodiscard]] std::optional<ColorScheme> preferredColorScheme(ThemePreference theme);

/// Nothing for any text that is not exactly one of the three words.
[[nodiscard]] std::optional<ThemePreference> themePreference(const QString &rawValue);
