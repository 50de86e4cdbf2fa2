// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Appearance.h"

#include <QColor>
#include <QPalette>

#include <optional>

/// The edge of a menu, and of a floating window that has no shadow.
struct Rim {
    QColor shade;
    /// The line inside the shade.
    QColor light;
};

/// The colours of our windows in one of the two colour schemes, adapted to the desktop's settings.
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
    /// The accent as a background for white text: default buttons and selected rows.
    QColor prominent;
    /// The accent with enough contrast for a ring around any control.
    QColor focusRing;
    QColor menuFace;
    /// The line around the face of a control.
    QColor controlRim;
    Rim rim;
    /// The line around a shadowed window.
    QColor shadowRim;

    [[nodiscard]] bool isLight() const { return scheme == ColorScheme::Light; }
    /// The palette of our standard widgets, so that setting the palette of a window changes its
    /// look. Colours for which the toolkit has no role use the roles below, which are not otherwise
    /// used in our windows.
    [[nodiscard]] QPalette palette() const;

    static constexpr auto secondaryTextRole = QPalette::LinkVisited;
    static constexpr auto tertiaryTextRole = QPalette::BrightText;
    static constexpr auto dividerRole = QPalette::Midlight;
    static constexpr auto prominentRole = QPalette::Shadow;
    static constexpr auto focusRingRole = QPalette::AlternateBase;
    static constexpr auto menuFaceRole = QPalette::ToolTipBase;
    static constexpr auto controlRimRole = QPalette::Dark;
    static constexpr auto rimShadeRole = QPalette::Mid;
    static constexpr auto rimLightRole = QPalette::Light;
};

/// The look for the desktop's settings, in the scheme @p forced if there is one.
[[nodiscard]] Look look(const Appearance &appearance,
                        std::optional<ColorScheme> forced = std::nullopt);

/// A colour with a shade for each scheme.
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

/// @p color with its opacity multiplied by @p opacity.
[[nodiscard]] QColor atOpacity(QColor color, double opacity);

/// A mixture of @p fraction of @p color and the rest of @p base.
[[nodiscard]] QColor mixed(const QColor &color, qreal fraction, const QColor &base);

/// The colour that @p top gives when it is painted over @p base.
[[nodiscard]] QColor layered(const QColor &top, const QColor &base);
