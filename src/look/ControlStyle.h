// SPDX-License-Identifier: MIT
#pragma once

#include <QMargins>
#include <QProxyStyle>

class QPushButton;
class QStyleOptionButton;

/// Draws the controls of our windows. All colours come from the palette of the window's look, so
/// the same style works for light and dark.
class ControlStyle final : public QProxyStyle
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(ControlStyle)

public:
    static constexpr int controlHeight = 22;
    /// The margin around a face for the focus ring, the rim and the shadow, in logical pixels. It
    /// takes no space in layouts (see OverhangItem).
    static constexpr int faceMargin = 3;
    static constexpr QMargins overhang{faceMargin, faceMargin, faceMargin, faceMargin};
    static constexpr int outerHeight = controlHeight + 2 * faceMargin;
    /// The overhang of a radio button around its line of text, for the focus ring and as a larger
    /// click target.
    static constexpr QMargins radioOverhang{faceMargin, 4, faceMargin, 4};

    ControlStyle();

    /// Paints @p button in the accent colour, to mark the button that Return presses wherever focus
    /// is.
    static void setProminent(QPushButton &button);

    /// Sets whether mnemonics, the letters that press a control together with Alt, are underlined.
    void setShowsMnemonics(bool shows) { m_showsMnemonics = shows; }

    /// Draws the raised face common to all controls, in the state given by @p option.
    static void drawFace(QPainter &painter, const QStyleOption &option);
    static void drawFace(QPainter &painter, const QStyleOption &option, const QColor &face);

    using QProxyStyle::polish;
    void polish(QWidget *widget) override;
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
    void drawIconAndText(QPainter &painter, const QStyleOptionButton &button) const;

    bool m_showsMnemonics = false;
};
