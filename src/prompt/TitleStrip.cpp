// SPDX-License-Identifier: MIT
#include "prompt/TitleStrip.h"

#include "look/Accessible.h"
#include "look/ControlStyle.h"
#include "look/Fonts.h"
#include "look/Labels.h"

#include <QLabel>
#include <QPainter>

#include <algorithm>

namespace
{
constexpr int buttonDiameter = 12;
constexpr int buttonLeft = 12;
// So that it is easily hit (WCAG 2.2, 2.5.8).
constexpr int buttonSide = 24;
constexpr int hintTrailing = 24;
constexpr int titleToHint = 12;
} // namespace

CloseButton::CloseButton(QWidget *parent)
    : QAbstractButton(parent)
{
    setAccessibleName(tr("Close"));
    setFixedSize(buttonSide, buttonSide);
    // A click must not take the caret out of the note; Control-Tab can.
    setFocusPolicy(Qt::TabFocus);
}

bool CloseButton::showsCross() const
{
    return underMouse() || hasFocus() || isDown();
}

void CloseButton::paintEvent(QPaintEvent *)
{
    const QColor red(0xFF5F57);
    QRectF circle(0, 0, buttonDiameter, buttonDiameter);
    circle.moveCenter(QRectF(rect()).center());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (hasFocus()) {
        constexpr qreal ring = ControlStyle::faceMargin;
        painter.setPen(Qt::NoPen);
        painter.setBrush(palette().color(Look::focusRingRole));
        painter.drawEllipse(circle.adjusted(-ring, -ring, ring, ring));
    }
    painter.setPen(QPen(red.darker(115), 0.5));
    painter.setBrush(isDown() ? red.darker(125) : red);
    painter.drawEllipse(circle.adjusted(0.25, 0.25, -0.25, -0.25));
    if (showsCross()) {
        constexpr qreal arm = 2.4;
        const QPointF centre = circle.center();
        painter.setPen(QPen(QColor(0x7E0508), 1.2, Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(centre - QPointF(arm, arm), centre + QPointF(arm, arm));
        painter.drawLine(centre - QPointF(arm, -arm), centre + QPointF(arm, -arm));
    }
}

void CloseButton::enterEvent(QEnterEvent *event)
{
    QAbstractButton::enterEvent(event);
    update();
}

void CloseButton::leaveEvent(QEvent *event)
{
    QAbstractButton::leaveEvent(event);
    update();
}

TitleStrip::TitleStrip(const QString &title, const Look &look, QWidget *parent)
    : QWidget(parent)
    , m_closeButton(new CloseButton(this))
    , m_title(new QLabel(title, this))
    , m_hint(new ElidedLabel(systemFont(FontSizes::body), QPalette::WindowText, this))
{
    m_title->setFont(systemFont(FontSizes::headline, QFont::DemiBold));
    m_title->setTextFormat(Qt::PlainText);
    m_hint->setText(tr("⌘↵ to save · esc to cancel"));
    for (QLabel *const label : {m_title, static_cast<QLabel *>(m_hint)}) {
        label->setAttribute(Qt::WA_TransparentForMouseEvents);
    }
    connect(m_closeButton, &QAbstractButton::clicked, this, &TitleStrip::closeRequested);
    // The editor tells it in words.
    m_hint->setAccessibleName(m_hint->text());
    Accessible::hide(*m_hint);
    setLook(look);
}

QString TitleStrip::spokenHint()
{
    return tr("Command Return to save, Escape to cancel");
}

void TitleStrip::setLook(const Look &look)
{
    const auto color = [](QLabel &label, const QColor &text) {
        QPalette palette;
        palette.setColor(QPalette::WindowText, text);
        label.setPalette(palette);
    };
    color(*m_title, look.primaryText);
    color(*m_hint, look.hint);
    m_closeButton->setPalette(look.palette());
}

void TitleStrip::resizeEvent(QResizeEvent *)
{
    m_closeButton->move(buttonLeft - (buttonSide - buttonDiameter) / 2, (height - buttonSide) / 2);
    const int titleWidth = m_title->sizeHint().width();
    m_title->setGeometry((width() - titleWidth) / 2, 0, titleWidth, height);
    const int room = width() - hintTrailing - m_title->geometry().right() - titleToHint;
    const int hintWidth = std::min(m_hint->sizeHint().width(), room);
    m_hint->setGeometry(width() - hintTrailing - hintWidth, 0, hintWidth, height);
}
