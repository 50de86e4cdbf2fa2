// SPDX-License-Identifier: MIT
#include "look/ControlStyle.h"

#include "look/Look.h"
#include "look/MenuDrawing.h"
#include "look/ScrollBarDrawing.h"
#include "look/Squircle.h"

#include <QPainter>
#include <QPushButton>
#include <QScrollBar>
#include <QStyleOption>
#include <QTextEdit>

namespace
{
constexpr auto prominentProperty = "tovlaIsProminent";
constexpr qreal controlRadius = 5;
constexpr int buttonPadding = 12;
// What the toolkit counts in a button's size hint.
constexpr int iconToText = 4;
constexpr int radioSide = 14;
constexpr int radioToText = 6;
constexpr int radioHeight = 24;

QColor shade(double opacity)
{
    return atOpacity(Qt::black, opacity);
}

void fillFace(QPainter &painter, const QRectF &rect, const QColor &rim, const QColor &face)
{
    painter.fillPath(squirclePath(rect.adjusted(-0.5, -0.5, 0.5, 0.5), controlRadius + 0.5), rim);
    painter.fillPath(squirclePath(rect.translated(0, 1), controlRadius), shade(0.14));
    painter.fillPath(squirclePath(rect, controlRadius), face);
}

void drawRadio(QPainter &painter, const QStyleOption &option)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF circle = QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5);
    const bool isOn = option.state.testFlag(QStyle::State_On);
    const QColor accent = option.palette.color(QPalette::Link);
    if (option.state.testFlag(QStyle::State_HasFocus)
        && option.state.testFlag(QStyle::State_KeyboardFocusChange)) {
        constexpr qreal ring = ControlStyle::faceMargin;
        painter.setPen(Qt::NoPen);
        painter.setBrush(option.palette.color(Look::focusRingRole));
        painter.drawEllipse(QRectF(option.rect).adjusted(-ring, -ring, ring, ring));
    }
    painter.setPen(QPen(isOn ? accent.darker(112) : option.palette.color(Look::controlRimRole), 1));
    painter.setBrush(isOn ? accent : option.palette.color(QPalette::Button));
    painter.drawEllipse(circle);
    if (isOn) {
        constexpr qreal dotRadius = 2.75;
        painter.setPen(Qt::NoPen);
        painter.setBrush(Qt::white);
        painter.drawEllipse(circle.center(), dotRadius, dotRadius);
    }
    if (option.state.testFlag(QStyle::State_Sunken)) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(shade(0.12));
        painter.drawEllipse(circle);
    }
    painter.restore();
}

/// Not the same as the toolkit's default button, which is the one with focus.
bool isProminent(const QStyleOption &option, const QWidget *widget)
{
    return widget != nullptr && widget->property(prominentProperty).toBool()
        && option.state.testFlag(QStyle::State_Enabled);
}

/// The two arrows that distinguish a pop-up from a button.
void drawPopUpArrows(QPainter &painter, const QStyleOption &option)
{
    constexpr qreal trailing = ControlStyle::faceMargin + 8;
    constexpr qreal side = 7;
    constexpr qreal gap = 2;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(option.palette.color(Look::secondaryTextRole));
    const qreal top = option.rect.center().y() - side / 2;
    const qreal up = option.direction == Qt::RightToLeft
        ? option.rect.left() + trailing
        : option.rect.right() - trailing - 2 * side - gap;
    const qreal down = up + side + gap;
    painter.drawPolygon(QPolygonF(
        {QPointF(up, top + side), QPointF(up + side, top + side), QPointF(up + side / 2, top)}));
    painter.drawPolygon(QPolygonF(
        {QPointF(down, top), QPointF(down + side, top), QPointF(down + side / 2, top + side)}));
    painter.restore();
}
} // namespace

void ControlStyle::drawFace(QPainter &painter, const QStyleOption &option)
{
    drawFace(painter, option, option.palette.color(QPalette::Button));
}

void ControlStyle::drawFace(QPainter &painter, const QStyleOption &option, const QColor &face)
{
    const bool isField = option.type == QStyleOption::SO_Frame;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF rect = QRectF(option.rect).marginsRemoved(overhang);
    if (option.state.testFlag(QStyle::State_HasFocus)
        && (option.state.testFlag(QStyle::State_KeyboardFocusChange)
            || isField)) { // text fields always show keyboard focus
        const QRectF ring = QRectF(option.rect);
        painter.fillPath(squirclePath(ring, controlRadius + faceMargin),
                         option.palette.color(Look::focusRingRole));
    }
    fillFace(painter, rect, option.palette.color(Look::controlRimRole), face);
    if (option.state.testFlag(QStyle::State_Sunken) && !isField) {
        painter.fillPath(squirclePath(rect, controlRadius), shade(0.12));
    } else if (option.state.testFlag(QStyle::State_MouseOver) && !isField
               && option.state.testFlag(QStyle::State_Enabled)) {
        painter.fillPath(squirclePath(rect, controlRadius), shade(0.04));
    }
    painter.restore();
}

ControlStyle::ControlStyle()
    : QProxyStyle(QStringLiteral("Fusion"))
{
}

void ControlStyle::setProminent(QPushButton &button)
{
    button.setProperty(prominentProperty, true);
}

void ControlStyle::polish(QWidget *widget)
{
    QProxyStyle::polish(widget);
    if (qobject_cast<QScrollBar *>(widget) != nullptr) {
        widget->setAttribute(Qt::WA_OpaquePaintEvent, false);
    }
}

void ControlStyle::drawControl(ControlElement element, const QStyleOption *option,
                               QPainter *painter, const QWidget *widget) const
{
    const bool isAccented = isProminent(*option, widget);
    if (element == CE_PushButtonBevel) {
        drawFace(*painter, *option,
                 option->palette.color(isAccented ? Look::prominentRole : QPalette::Button));
        return;
    }
    if (element == CE_PushButtonLabel) {
        auto label = *qstyleoption_cast<const QStyleOptionButton *>(option);
        if (isAccented) {
            label.palette.setColor(QPalette::ButtonText, Qt::white);
        }
        if (label.icon.isNull()) {
            QProxyStyle::drawControl(element, &label, painter, widget);
        } else {
            drawIconAndText(*painter, label);
        }
        return;
    }
    if (element == CE_RadioButton) {
        // Room for the focus ring.
        auto radio = *qstyleoption_cast<const QStyleOptionButton *>(option);
        radio.rect = visualRect(radio.direction, radio.rect,
                                radio.rect.adjusted(faceMargin, 0, -faceMargin, 0));
        QProxyStyle::drawControl(element, &radio, painter, widget);
        return;
    }
    if (const auto *const item = qstyleoption_cast<const QStyleOptionMenuItem *>(option);
        item != nullptr && element == CE_MenuItem) {
        MenuDrawing::drawItem(*painter, *item, widget, m_showsMnemonics);
        return;
    }
    if (element != CE_MenuEmptyArea) {
        QProxyStyle::drawControl(element, option, painter, widget);
    }
}

/// The toolkit leaves too little between icon and text, and does not mirror them.
void ControlStyle::drawIconAndText(QPainter &painter, const QStyleOptionButton &button) const
{
    const int mnemonic = m_showsMnemonics ? Qt::TextShowMnemonic : Qt::TextHideMnemonic;
    const int beforeText = button.iconSize.width() + iconToText;
    const QSize size(beforeText + button.fontMetrics.size(mnemonic, button.text).width(),
                     button.rect.height());
    const QRect all = alignedRect(Qt::LeftToRight, Qt::AlignCenter, size, button.rect);
    const QRect icon = visualRect(
        button.direction, all,
        alignedRect(Qt::LeftToRight, Qt::AlignLeft | Qt::AlignVCenter, button.iconSize, all));
    button.icon.paint(&painter, icon);
    drawItemText(&painter, visualRect(button.direction, all, all.adjusted(beforeText, 0, 0, 0)),
                 static_cast<int>(Qt::AlignCenter) | mnemonic, button.palette,
                 button.state.testFlag(State_Enabled), button.text, QPalette::ButtonText);
}

QSize ControlStyle::sizeFromContents(ContentsType type, const QStyleOption *option,
                                     const QSize &size, const QWidget *widget) const
{
    if (type == CT_PushButton) {
        return {size.width() + 2 * (buttonPadding + faceMargin), outerHeight};
    }
    if (type == CT_RadioButton) {
        return {QProxyStyle::sizeFromContents(type, option, size, widget).width() + 2 * faceMargin,
                radioHeight};
    }
    if (const auto *const item = qstyleoption_cast<const QStyleOptionMenuItem *>(option);
        item != nullptr && type == CT_MenuItem) {
        return MenuDrawing::itemSize(*item, size);
    }
    return QProxyStyle::sizeFromContents(type, option, size, widget);
}

void ControlStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option,
                                 QPainter *painter, const QWidget *widget) const
{
    switch (element) {
    case PE_PanelLineEdit:
        drawFace(*painter, *option);
        break;
    case PE_Frame: // of long texts
        drawFace(*painter, *option, option->palette.color(QPalette::Base));
        break;
    case PE_IndicatorRadioButton:
        drawRadio(*painter, *option);
        break;
    case PE_PanelMenu:
    case PE_PanelTipLabel:
        MenuDrawing::drawPanel(*painter, *option, widget);
        break;
    case PE_FrameMenu:
    case PE_FrameFocusRect: // the faces show keyboard focus
    case PE_FrameLineEdit:
        break;
    default:
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

void ControlStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex *option,
                                      QPainter *painter, const QWidget *widget) const
{
    if (control == CC_ComboBox) {
        drawFace(*painter, *option);
        drawPopUpArrows(*painter, *option);
        return;
    }
    if (const auto *const slider = qstyleoption_cast<const QStyleOptionSlider *>(option);
        slider != nullptr && control == CC_ScrollBar) {
        ScrollBarDrawing::draw(*painter, *slider);
        return;
    }
    QProxyStyle::drawComplexControl(control, option, painter, widget);
}

QRect ControlStyle::subControlRect(ComplexControl control, const QStyleOptionComplex *option,
                                   SubControl part, const QWidget *widget) const
{
    if (control == CC_ComboBox && part == SC_ComboBoxEditField) {
        constexpr int leading = faceMargin + 6;
        constexpr int arrows = faceMargin + 29;
        return visualRect(option->direction, option->rect,
                          option->rect.adjusted(leading, 0, -arrows, 0));
    }
    if (const auto *const slider = qstyleoption_cast<const QStyleOptionSlider *>(option);
        slider != nullptr && control == CC_ScrollBar) {
        return ScrollBarDrawing::part(*slider, part);
    }
    return QProxyStyle::subControlRect(control, option, part, widget);
}

int ControlStyle::styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                            QStyleHintReturn *returned) const
{
    switch (hint) {
    case SH_UnderlineShortcut:
        return m_showsMnemonics ? 1 : 0;
    case SH_ScrollBar_Transient: // over the content
    case SH_ComboBox_Popup: // opens with the chosen item, ticked, over the button
    case SH_Menu_MouseTracking:
    case SH_Menu_AllowActiveAndDisabled: // so that screen readers also speak disabled items
        return 1;
    case SH_ComboBox_PopupFrameStyle:
        return QFrame::NoFrame;
    case SH_ComboBox_AllowWheelScrolling: // scrolling over a window must not change values
        return 0;
    default:
        return QProxyStyle::styleHint(hint, option, widget, returned);
    }
}

int ControlStyle::pixelMetric(PixelMetric metric, const QStyleOption *option,
                              const QWidget *widget) const
{
    switch (metric) {
    case PM_ButtonShiftHorizontal:
    case PM_ButtonShiftVertical:
    case PM_MenuPanelWidth:
        return 0;
    case PM_MenuHMargin:
    case PM_MenuVMargin:
        return MenuDrawing::padding;
    case PM_ScrollBarExtent:
    case PM_ScrollView_ScrollBarOverlap: // over the content
        return ScrollBarDrawing::extent;
    case PM_TextCursorWidth: // BlinkingCaret is drawn instead
        return 0;
    case PM_DefaultFrameWidth:
        return qobject_cast<const QTextEdit *>(widget) != nullptr
            ? faceMargin
            : QProxyStyle::pixelMetric(metric, option, widget);
    case PM_ExclusiveIndicatorWidth:
    case PM_ExclusiveIndicatorHeight:
        return radioSide;
    case PM_RadioButtonLabelSpacing:
        return radioToText;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}
