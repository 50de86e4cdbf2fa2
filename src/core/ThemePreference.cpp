// SPDX-License-Identifier: MIT
#include "core/ThemePreference.h"

#include <algorithm>

QString rawValue(ThemePreference theme)
{
    switch (theme) {
    case ThemePreference::light:
        return QStringLiteral("light");
    case ThemePreference::dark:
        return QStringLiteral("dark");
    case ThemePreference::system:
        break;
    }
    return QStringLiteral("system");
}

std::optional<ColorScheme> preferredColorScheme(ThemePreference theme)
{
    switch (theme) {
    case ThemePreference::light:
        return ColorScheme::Light;
    case ThemePreference::dark:
        return ColorScheme::Dark;
    case ThemePreference::system:
        break;
    }
    return std::nullopt;
}

std::optional<ThemePreference> themePreference(const QString &rawValue)
{
    const auto *found = std::ranges::find(allThemePreferences, rawValue, ::rawValue);
    return found == allThemePreferences.end() ? std::nullopt : std::optional(*found);
}
