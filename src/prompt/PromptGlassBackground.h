// SPDX-License-Identifier: MIT
#pragma once

#include "look/Shadow.h"
#include "platform/Appearance.h"

class QPainter;

/// The translucent backdrop that fills a whole prompt, title strip included. Where nothing is
/// composited it is opaque and has no corners of its own.
class PromptGlassBackground final
{
public:
    enum class Behind {
        Opaque, ///< no compositor: nothing can be seen through
        Clear, ///< a compositor that does not blur
        Blurred,
    };

    static constexpr qreal cornerRadius = 18;

    explicit PromptGlassBackground(ColorScheme colorScheme)
        : m_colorScheme(colorScheme)
    {
    }

    /// @p frame is the prompt without its shadow, which is drawn around it.
    void paint(QPainter &painter, const QRectF &frame, Behind behind);

private:
    void paintGlass(QPainter &painter, const QRectF &frame, Behind behind);
    void paintRim(QPainter &painter, const QRectF &frame) const;
    void paintMaterial(QPainter &painter, const QRectF &frame) const;
    [[nodiscard]] bool isLight() const { return m_colorScheme == ColorScheme::Light; }

    ColorScheme m_colorScheme;
    ShadowPainter m_shadow;
};
