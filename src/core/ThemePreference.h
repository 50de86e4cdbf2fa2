// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ColorScheme.h"

#include <QString>

#include <array>
#include <optional>

/// The theme of the prompt and the settings: like the system's, or always light or dark.
enum class ThemePreference { system, light, dark };

/// In the order in which they are listed.
inline constexpr std::array allThemePreferences{ThemePreference::system, ThemePreference::light,
                                                ThemePreference::dark};

/// The stored value: "system", "light" or "dark".
[[nodiscard]] QString rawValue(ThemePreference theme);

/// The scheme that windows are forced to use; nullopt if they follow the system.
[[nodiscard]] std::optional<ColorScheme> preferredColorScheme(ThemePreference theme);

/// nullopt for anything but exactly one of the three stored values.
[[nodiscard]] std::optional<ThemePreference> themePreference(const QString &rawValue);
