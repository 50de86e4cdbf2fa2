// SPDX-License-Identifier: MIT
#include "look/Look.h"

#include "look/Contrast.h"

namespace
{
QColor black(double opacity)
{
    return QColor::fromRgbF(0, 0, 0, static_cast<float>(opacity));
}

QColor white(double opacity)
{
    return QColor::fromRgbF(1, 1, 1, static_cast<float>(opacity));
}

Look lightLook()
{
    return {.scheme = ColorScheme::Light,
            .primaryText = black(0.85),
            .secondaryText = black(0.56),
            .tertiaryText = black(0.46),
            .placeholder = atOpacity(black(0.85), 0.68),
            .hint = black(0.62),
            .textBackground = QColor(0xFFFFFF),
            .windowBackground = QColor(0xECECEC),
            .controlFace = QColor(0xFFFFFF),
            .divider = black(0.10),
            .accent = Tints::blue.light,
            .selection = {},
            .prominent = {},
            .focusRing = {},
            .menuFace = QColor(0xF6F6F6),
            .controlRim = black(0.16),
            .rim = {.shade = black(0.16), .light = white(0.60)},
            .shadowRim = black(0.10)};
}

Look darkLook()
{
    return {.scheme = ColorScheme::Dark,
            .primaryText = white(0.85),
            .secondaryText = white(0.60),
            .tertiaryText = white(0.46),
            .placeholder = atOpacity(white(0.85), 0.68),
            .hint = white(0.66),
            .textBackground = QColor(0x1E1E1E),
            .windowBackground = QColor(0x323232),
            .controlFace = QColor(0x5A5A5C),
            .divider = white(0.10),
            .accent = Tints::blue.dark,
            .selection = {},
            .prominent = {},
            .focusRing = {},
            .menuFace = QColor(0x3A3A3C),
            .controlRim = black(0.16),
            .rim = {.shade = black(0.55), .light = white(0.14)},
            .shadowRim = white(0.10)};
}

void raiseContrast(Look &look)
{
    const auto full = look.isLight() ? black(1) : white(1);
    look.primaryText = full;
    look.secondaryText = atOpacity(full, 0.85);
    look.tertiaryText = atOpacity(full, 0.75);
    look.placeholder = atOpacity(full, 0.75);
    look.hint = full;
    look.divider = atOpacity(full, 0.5);
    // The face of the control covers half of the rim.
    look.controlRim = full;
    look.rim = {.shade = atOpacity(full, 0.75), .light = Qt::transparent};
    look.shadowRim = look.rim.shade;
}

/// The accent as a background on which white text is readable. The required contrast is 4.5:1; thin
/// strokes, which blend with the background, need a little more.
QColor prominent(const QColor &accent)
{
    constexpr double ratio = 5.3;
    return withContrast(accent.isValid() ? accent : Tints::blue.light, Qt::black, ratio,
                        {Qt::white});
}
} // namespace

Look look(const Appearance &appearance, std::optional<ColorScheme> forced)
{
    const ColorScheme scheme = forced.value_or(appearance.colorScheme());
    Look look = scheme == ColorScheme::Light ? lightLook() : darkLook();
    if (appearance.wantsHighContrast()) {
        raiseContrast(look);
    }
    if (appearance.accent().isValid()) {
        look.accent = appearance.accent();
    }
    look.prominent = prominent(appearance.accent());
    look.focusRing = withContrast(look.accent, look.isLight() ? Qt::black : Qt::white, 3,
                                  {look.windowBackground, look.controlFace});
    // Pale enough to keep selected text readable in its own colour on any accent.
    look.selection = mixed(look.accent, look.isLight() ? 0.30 : 0.45, look.textBackground);
    return look;
}

QPalette Look::palette() const
{
    QPalette palette(primaryText, controlFace, rim.light, controlRim, rim.shade, primaryText,
                     QColor(Qt::white), textBackground, windowBackground);
    palette.setColor(QPalette::Highlight, selection);
    palette.setColor(QPalette::HighlightedText, primaryText);
    palette.setColor(QPalette::PlaceholderText, placeholder);
    palette.setColor(QPalette::Link, accent);
    palette.setColor(secondaryTextRole, secondaryText);
    palette.setColor(tertiaryTextRole, tertiaryText);
    palette.setColor(dividerRole, divider);
    palette.setColor(prominentRole, prominent);
    palette.setColor(focusRingRole, focusRing);
    palette.setColor(menuFaceRole, menuFace);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, role, tertiaryText);
    }
    return palette;
}

QColor mixed(const QColor &color, qreal fraction, const QColor &base)
{
    const auto part = [fraction](float ours, float theirs) {
        return static_cast<float>(ours * fraction + theirs * (1 - fraction));
    };
    return QColor::fromRgbF(part(color.redF(), base.redF()), part(color.greenF(), base.greenF()),
                            part(color.blueF(), base.blueF()));
}

QColor atOpacity(QColor color, double opacity)
{
    color.setAlphaF(color.alphaF() * static_cast<float>(opacity));
    return color;
}

QColor layered(const QColor &top, const QColor &base)
{
    const float below = base.alphaF() * (1 - top.alphaF());
    const float alpha = top.alphaF() + below;
    if (alpha <= 0) {
        return Qt::transparent;
    }
    return atOpacity(mixed(top, top.alphaF() / alpha, base), alpha);
}
