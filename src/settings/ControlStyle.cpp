// SPDX-License-Identifier: MIT
#include "settings/ControlStyle.h"

#include "look/Squircle.h"

#include <QPainter>
#include <QStyleOption>

namespace
{
constexpr qreal controlRadius = 5;
constexpr int buttonPadding = 12;
/// Around the face: a rim above and at the sides, a little more of a shadow below.
constexpr int faceMargin = 1;
constexpr qreal focusRingWidth = 3;

QColor shade(double opacity)
{
    return QColor::fromRgbF(0, 0, 0, static_cast<float>(opacity));
}

void fillFace(QPainter &painter, const QRectF &rect, const QColor &face)
{
    painter.fillPath(squirclePath(rect.adjusted(-0.5, -0.5, 0.5, 0.5), controlRadius + 0.5),
                     shade(0.16));
    painter.fillPath(squirclePath(rect.translated(0, 1), controlRadius), shade(0.14));
    painter.fillPath(squirclePath(rect, controlRadius), face);
}

/// The raised face of a control, in the state that @p option tells.
void drawFace(QPainter &painter, const QStyleOption &option)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF rect
        = QRectF(option.rect).adjusted(faceMargin, faceMargin, -faceMargin, -faceMargin - 1);
    if (option.state.testFlag(QStyle::State_HasFocus)
        && option.state.testFlag(QStyle::State_KeyboardFocusChange)) {
        QColor ring = option.palette.color(QPalette::Link);
        ring.setAlphaF(0.5F);
        const qreal grown = focusRingWidth - faceMargin;
        painter.fillPath(
            squirclePath(rect.adjusted(-grown, -grown, grown, grown), controlRadius + grown), ring);
    }
    fillFace(painter, rect, option.palette.color(QPalette::Button));
    if (option.state.testFlag(QStyle::State_Sunken)) {
        painter.fillPath(squirclePath(rect, controlRadius), shade(0.12));
    } else if (option.state.testFlag(QStyle::State_MouseOver)
               && option.state.testFlag(QStyle::State_Enabled)) {
        painter.fillPath(squirclePath(rect, controlRadius), shade(0.04));
    }
    painter.restore();
}
} // namespace

ControlStyle::ControlStyle()
    : QProxyStyle(QStringLiteral("Fusion"))
{
}

void ControlStyle::drawControl(ControlElement element, const QStyleOption *option,
                               QPainter *painter, const QWidget *widget) const
{
    if (element == CE_PushButtonBevel) {
        drawFace(*painter, *option);
        return;
    }
    QProxyStyle::drawControl(element, option, painter, widget);
}

QSize ControlStyle::sizeFromContents(ContentsType type, const QStyleOption *option,
                                     const QSize &size, const QWidget *widget) const
{
    if (type == CT_PushButton) {
        return {size.width() + 2 * (buttonPadding + faceMargin),
                controlHeight + 2 * faceMargin + 1};
    }
    return QProxyStyle::sizeFromContents(type, option, size, widget);
}

int ControlStyle::pixelMetric(PixelMetric metric, const QStyleOption *option,
                              const QWidget *widget) const
{
    switch (metric) {
    case PM_ButtonShiftHorizontal:
    case PM_ButtonShiftVertical:
        return 0;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}
