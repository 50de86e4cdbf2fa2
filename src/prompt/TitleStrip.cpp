// SPDX-License-Identifier: MIT
#include "prompt/TitleStrip.h"

#include "look/Accessible.h"
#include "look/Fonts.h"
#include "look/Labels.h"
#include "prompt/CloseButton.h"

#include <QLabel>
#include <QStyle>

#include <algorithm>

namespace
{
constexpr int buttonLeading = 12;
constexpr int hintTrailing = 24;
constexpr int titleToHint = 12;
} // namespace

TitleStrip::TitleStrip(const QString &title, const Look &look, QWidget *parent)
    : QWidget(parent)
    , m_closeButton(new CloseButton(this))
    , m_title(new QLabel(title, this))
    , m_hint(new ElidedLabel(systemFont(FontSizes::body), QPalette::WindowText, this))
{
    m_title->setFont(systemFont(FontSizes::headline, QFont::DemiBold));
    m_title->setTextFormat(Qt::PlainText);
    // Worded for a keyboard with a Control key in tovla_en.ts: "Ctrl+↵ to save".
    m_hint->setText(tr("⌘↵ to save · esc to cancel"));
    for (QLabel *const label : {m_title, static_cast<QLabel *>(m_hint)}) {
        label->setAttribute(Qt::WA_TransparentForMouseEvents);
    }
    connect(m_closeButton, &QAbstractButton::clicked, this, &TitleStrip::closeRequested);
    // Screen readers skip the hint: the editor's accessible description says it in words. Its role
    // deprives it of the name that a label would have, so it is set here.
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
    const auto put = [this](QWidget *part, const QRect &place) {
        part->setGeometry(QStyle::visualRect(layoutDirection(), rect(), place));
    };
    put(m_closeButton,
        QRect(buttonLeading - (CloseButton::side - CloseButton::diameter) / 2,
              (height - CloseButton::side) / 2, CloseButton::side, CloseButton::side));
    const int titleWidth = m_title->sizeHint().width();
    const QRect title((width() - titleWidth) / 2, 0, titleWidth, height);
    m_title->setGeometry(title);
    const int room = width() - hintTrailing - title.right() - titleToHint;
    const int hintWidth = std::min(m_hint->sizeHint().width(), room);
    put(m_hint, QRect(width() - hintTrailing - hintWidth, 0, hintWidth, height));
}
