// SPDX-License-Identifier: MIT
#pragma once

#include <QMargins>
#include <QProxyStyle>

class QPushButton;

/// How the controls of our windows are drawn. Every colour comes from the palette that the
/// window's look makes, so one style serves both looks.
class ControlStyle final : public QProxyStyle
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(ControlStyle)

public:
    static constexpr int controlHeight = 22;
    /// Around a face there is room for the focus ring, and for the rim and the shadow. It takes no
    /// place in a layout (OverhangItem). Logical pixels.
    static constexpr int faceMargin = 3;
    static constexpr QMargins overhang{faceMargin, faceMargin, faceMargin, faceMargin};
    static constexpr int outerHeight = controlHeight + 2 * faceMargin;

    ControlStyle();

    /// Paints @p button in the accent colour, as the one that Return presses wherever the focus is.
    static void setProminent(QPushButton &button);

    /// Whether the letters that Alt presses a control with are underlined.
    void setShowsMnemonics(bool shows) { m_showsMnemonics = shows; }

    /// The raised face that all controls share, in the state that @p option tells.
    static void drawFace(QPainter &painter, const QStyleOption &option);
    static void drawFace(QPainter &painter, const QStyleOption &option, const QColor &face);

    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex *option,
                            QPainter *painter, const QWidget *widget) const override;
    [[nodiscard]] QRect subControlRect(ComplexControl control, const QStyleOptionComplex *option,
                                       SubControl part, const QWidget *widget) const override;
    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                  QStyleHintReturn *returned) const override;

    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                     const QWidget *widget) const override;
    [[nodiscard]] QSize sizeFromContents(ContentsType type, const QStyleOption *option,
                                         const QSize &size, const QWidget *widget) const override;
    [[nodiscard]] int pixelMetric(PixelMetric metric, const QStyleOption *option,
                                  const QWidget *widget) const override;

private:
    bool m_showsMnemonics = false;
};
