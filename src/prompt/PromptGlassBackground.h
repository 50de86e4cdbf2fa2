// SPDX-License-Identifier: MIT
#pragma once

#include "look/FloatingWindow.h"

/// The backdrop that fills a whole prompt, including the title strip: translucent, or opaque
/// without a compositor. Its colours are here and not in look/, because only the prompt uses them.
class PromptGlassBackground final
{
public:
    static constexpr qreal cornerRadius = 18;

    explicit PromptGlassBackground(ColorScheme colorScheme)
        : m_colorScheme(colorScheme)
    {
    }

    [[nodiscard]] QColor color(FloatingWindow::Behind behind) const;

private:
    [[nodiscard]] QColor glass(FloatingWindow::Behind behind) const;
    /// The opaque variant.
    [[nodiscard]] QColor material() const;
    [[nodiscard]] bool isLight() const { return m_colorScheme == ColorScheme::Light; }

    ColorScheme m_colorScheme;
};
