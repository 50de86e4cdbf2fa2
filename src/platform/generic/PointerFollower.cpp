// SPDX-License-Identifier: MIT
#include "platform/generic/PointerFollower.h"

#include <QMouseEvent>

PointerFollower::PointerFollower(QWidget &window)
    : QObject(&window)
    , m_window(window)
{
    window.installEventFilter(this);
}

bool PointerFollower::eventFilter(QObject *, QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseMove:
        follow(static_cast<QMouseEvent *>(event)->globalPosition().toPoint());
        break;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::Hide:
        m_window.removeEventFilter(this);
        deleteLater();
        break;
    default:
        break;
    }
    return false;
}

void PointerFollower::follow(const QPoint &pointer)
{
    if (!m_hold) {
        m_hold = pointer - m_window.pos();
    }
    m_window.move(pointer - *m_hold);
}
