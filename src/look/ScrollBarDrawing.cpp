// SPDX-License-Identifier: MIT
#include "look/ScrollBarDrawing.h"

#include "look/Look.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOptionSlider>

#include <algorithm>

namespace
{
constexpr int thickness = 7;
constexpr int edge = 3;
static_assert(thickness + edge == ScrollBarDrawing::extent);
// In logical pixels; the handle of a long text must still be easy to hit.
constexpr int shortest = 24;

QRect handle(const QStyleOptionSlider &option)
{
    const bool isHorizontal = option.orientation == Qt::Horizontal;
    const int room = (isHorizontal ? option.rect.width() : option.rect.height()) - 2 * edge;
    const int all = option.maximum - option.minimum + option.pageStep;
    const int length = std::clamp(room * option.pageStep / std::max(all, 1),
                                  std::min(shortest, room), std::max(room, 0));
    const int start = edge
        + QStyle::sliderPositionFromValue(option.minimum, option.maximum, option.sliderPosition,
                                          room - length, option.upsideDown);
    return isHorizontal ? QRect(start, 0, length, thickness) : QRect(0, start, thickness, length);
}
} // namespace

QRect ScrollBarDrawing::part(const QStyleOptionSlider &option, QStyle::SubControl part)
{
    const QRect handle = ::handle(option);
    QRect rest = option.rect;
    const bool isHorizontal = option.orientation == Qt::Horizontal;
    switch (part) {
    case QStyle::SC_ScrollBarSlider:
        return handle;
    case QStyle::SC_ScrollBarGroove:
        return rest;
    case QStyle::SC_ScrollBarSubPage:
        isHorizontal ? rest.setRight(handle.left() - 1) : rest.setBottom(handle.top() - 1);
        return rest;
    case QStyle::SC_ScrollBarAddPage:
        isHorizontal ? rest.setLeft(handle.right() + 1) : rest.setTop(handle.bottom() + 1);
        return rest;
    default:
        return {};
    }
}

void ScrollBarDrawing::draw(QPainter &painter, const QStyleOptionSlider &option)
{
    constexpr double atRest = 0.35;
    constexpr double held = 0.6;
    const bool isHeld = option.state.testFlag(QStyle::State_Sunken)
        || option.activeSubControls.testFlag(QStyle::SC_ScrollBarSlider);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    QColor color = option.palette.color(QPalette::WindowText);
    color.setAlphaF(1);
    painter.setBrush(atOpacity(color, isHeld ? held : atRest));
    painter.drawRoundedRect(handle(option), thickness / 2.0, thickness / 2.0);
    painter.restore();
}
