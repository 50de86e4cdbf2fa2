// SPDX-License-Identifier: MIT
#include "look/BlinkingCaret.h"

#include <QEvent>
#include <QGuiApplication>
#include <QPainter>
#include <QStyleHints>
#include <QTimerEvent>
#include <QWidget>

BlinkingCaret::BlinkingCaret(QWidget &text)
    : QObject(&text)
    , m_text(text)
{
    text.installEventFilter(this);
}

void BlinkingCaret::restart()
{
    m_timer.stop();
    show(m_text.hasFocus());
    // For one appearance and one disappearance; not positive if carets do not blink.
    const int milliseconds = QGuiApplication::styleHints()->cursorFlashTime();
    if (m_isOn && milliseconds > 1) {
        m_timer.start(milliseconds / 2, this);
    }
}

void BlinkingCaret::draw(QPainter &painter, const QRect &place) const
{
    if (m_isOn) {
        painter.fillRect(place, m_text.palette().color(QPalette::Link));
    }
}

bool BlinkingCaret::eventFilter(QObject *, QEvent *event)
{
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) {
        restart();
    }
    return false;
}

void BlinkingCaret::timerEvent(QTimerEvent *event)
{
    if (event->timerId() == m_timer.timerId()) {
        show(!m_isOn);
    }
}

void BlinkingCaret::show(bool isOn)
{
    if (isOn != m_isOn) {
        m_isOn = isOn;
        m_text.update();
    }
}
