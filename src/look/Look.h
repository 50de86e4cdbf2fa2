// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Appearance.h"

#include <QColor>
#include <QPalette>

#include <optional>

/// The colours of our windows in one of the two colour schemes, as the desktop's wishes alter them.
struct Look {
    ColorScheme scheme;
    QColor primaryText;
    QColor secondaryText;
    QColor tertiaryText;
    QColor placeholder;
    QColor hint;
    QColor textBackground;
    QColor windowBackground;
    QColor controlFace;
    QColor divider;
    QColor accent;
    QColor selection;

    [[nodiscard]] bool isLight() const { return scheme == ColorScheme::Light; }
    /// What a standard widget of ours is painted with. A label is given its level of text, and a
    /// divider its colour, by one of the roles below, which nothing of ours uses otherwise; so a
    /// window changes its look with its palette alone.
    [[nodiscard]] QPalette palette() const;

    static constexpr auto secondaryTextRole = QPalette::LinkVisited;
    static constexpr auto tertiaryTextRole = QPalette::BrightText;
    static constexpr auto dividerRole = QPalette::Midlight;
};

/// The look that the desktop asks for, in the scheme @p forced where there is one.
[[nodiscard]] Look look(const Appearance &appearance,
                        std::optional<ColorScheme> forced = std::nullopt);

/// A tint that comes in two shades.
struct Tint {
    QColor light;
    QColor dark;

    [[nodiscard]] QColor in(ColorScheme scheme) const
    {
        return scheme == ColorScheme::Light ? light : dark;
    }
};

namespace Tints
{
inline const Tint blue{QColor(0x007AFF), QColor(0x0A84FF)};
inline const Tint orange{QColor(0xFF9500), QColor(0xFF9F0A)};
inline const Tint purple{QColor(0xAF52DE), QColor(0xBF5AF2)};
inline const Tint green{QColor(0x34C759), QColor(0x30D158)};
} // namespace Tints

/// @p color with the fraction @p opacity of its own opacity.
[[nodiscard]] QColor atOpacity(QColor color, double opacity);

/// @p fraction of @p color, and the rest of @p base.
[[nodiscard]] QColor mixed(const QColor &color, qreal fraction, const QColor &base);
