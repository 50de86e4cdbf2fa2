// SPDX-License-Identifier: MIT
#include "look/MenuDrawing.h"

#include "look/FloatingShadow.h"
#include "look/Look.h"
#include "look/Squircle.h"

#include <QComboBox>
#include <QPainter>
#include <QStyleOptionMenuItem>

namespace
{
constexpr qreal menuRadius = 10;
constexpr qreal rowRadius = 5;
constexpr int rowHeight = 24;
constexpr int separatorHeight = 11;
constexpr int textInset = 10;
constexpr int tickSide = 8;
constexpr int tickWidth = 15; // with the space after it
constexpr int textToKeys = 24;

bool canBeTicked(const QStyleOptionMenuItem &option)
{
    return option.checkType != QStyleOptionMenuItem::NotCheckable;
}

/// The list of a pop-up has no padding beside its rows, so they are narrowed here.
QRect rowOf(const QStyleOptionMenuItem &option, const QWidget *widget)
{
    const bool isInPopUp = qobject_cast<const QComboBox *>(widget) != nullptr;
    return isInPopUp ? option.rect.adjusted(MenuDrawing::padding, 0, -MenuDrawing::padding, 0)
                     : option.rect;
}

void drawTick(QPainter &painter, const QRect &row, Qt::LayoutDirection direction,
              const QColor &color)
{
    const QRect place = QStyle::visualRect(
        direction, row, QRect(row.left() + textInset, row.top(), tickSide, row.height()));
    const QPointF start(place.left(), row.center().y() + 1.5);
    painter.setPen(QPen(color, 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawPolyline(
        QPolygonF({start, start + QPointF(2.5, 2.5), start + QPointF(tickSide, -4.5)}));
}
} // namespace

void MenuDrawing::drawPanel(QPainter &painter, const QStyleOption &option, const QWidget *widget)
{
    const QColor face = option.palette.color(Look::menuFaceRole);
    const Rim rim{.shade = option.palette.color(Look::rimShadeRole),
                  .light = option.palette.color(Look::rimLightRole)};
    const QRectF rect = option.rect;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    if (widget != nullptr && widget->window()->testAttribute(Qt::WA_TranslucentBackground)) {
        // The toolkit should do this before each painting, but since Qt 6.8 it does not always on
        // Wayland.
        painter.setCompositionMode(QPainter::CompositionMode_Clear);
        painter.fillRect(option.rect, Qt::transparent);
        painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
        painter.fillPath(squirclePath(rect, menuRadius), face);
        FloatingShadow::paintRoundRim(painter, rect, menuRadius, rim);
    } else {
        painter.fillRect(rect, face);
        FloatingShadow::paintRim(painter, rect, rim);
    }
    painter.restore();
}

void MenuDrawing::drawItem(QPainter &painter, const QStyleOptionMenuItem &option,
                           const QWidget *widget, bool underlinesMnemonic)
{
    const QRect row = rowOf(option, widget);
    const QPalette &palette = option.palette;
    if (option.menuItemType == QStyleOptionMenuItem::Separator) {
        painter.fillRect(row.left() + textInset, row.center().y(), row.width() - 2 * textInset, 1,
                         palette.color(Look::dividerRole));
        return;
    }
    const bool isEnabled = option.state.testFlag(QStyle::State_Enabled);
    const bool isSelected = isEnabled && option.state.testFlag(QStyle::State_Selected);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    if (isSelected) {
        painter.fillPath(squirclePath(row, rowRadius), palette.color(Look::prominentRole));
    } else if (option.state.testFlag(QStyle::State_Selected)) {
        painter.fillPath(squirclePath(row, rowRadius), palette.color(Look::dividerRole));
    }
    const QColor plain = isEnabled ? palette.color(QPalette::Active, QPalette::WindowText)
                                   : palette.color(Look::tertiaryTextRole);
    const QColor text = isSelected ? QColor(Qt::white) : plain;
    if (canBeTicked(option) && option.checked) {
        drawTick(painter, row, option.direction, text);
    }
    const int inset = textInset + (canBeTicked(option) ? tickWidth : 0);
    const QRect texts
        = QStyle::visualRect(option.direction, row, row.adjusted(inset, 0, -textInset, 0));
    const QString label = option.text.section(u'\t', 0, 0);
    const QString keys = option.text.section(u'\t', 1);
    constexpr int oneLine = static_cast<int>(Qt::AlignVCenter) | Qt::TextSingleLine;
    // The menu's direction counts, whatever script a text is in.
    const auto at = [&option](Qt::Alignment edge) {
        return static_cast<int>(QStyle::visualAlignment(option.direction, edge)
                                | Qt::AlignAbsolute);
    };
    const int mnemonic = underlinesMnemonic ? Qt::TextShowMnemonic : Qt::TextHideMnemonic;
    painter.setFont(option.font);
    painter.setPen(text);
    painter.drawText(texts, oneLine | at(Qt::AlignLeft) | mnemonic, label);
    painter.setPen(isEnabled && !isSelected ? palette.color(Look::secondaryTextRole) : text);
    painter.drawText(texts, oneLine | at(Qt::AlignRight), keys);
    painter.restore();
}

QSize MenuDrawing::itemSize(const QStyleOptionMenuItem &option, const QSize &contents)
{
    if (option.menuItemType == QStyleOptionMenuItem::Separator) {
        return {contents.width(), separatorHeight};
    }
    const int tick = canBeTicked(option) ? tickWidth : 0;
    const int keys = option.text.contains(u'\t') ? textToKeys : 0;
    return {contents.width() + 2 * textInset + tick + keys, rowHeight};
}
