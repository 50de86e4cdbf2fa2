// SPDX-License-Identifier: MIT
#include "look/ScaleFollower.h"

#include "platform/Windows.h"

#include <QEvent>
#include <QGuiApplication>
#include <QWidget>

#include <utility>

ScaleFollower::ScaleFollower(QWidget &window, Windows &windows, std::function<void()> place)
    : QObject(&window)
    , m_window(window)
    , m_windows(windows)
    , m_place(std::move(place))
{
    window.installEventFilter(this);
    connect(qGuiApp, &QGuiApplication::screenAdded, this, &ScaleFollower::watch);
    for (const QScreen *const screen : QGuiApplication::screens()) {
        watch(screen);
    }
}

void ScaleFollower::watch(const QScreen *screen) const
{
    // The geometry is in logical pixels, so it changes with the scale.
    for (const auto changed : {&QScreen::geometryChanged, &QScreen::availableGeometryChanged}) {
        connect(screen, changed, this, &ScaleFollower::check, Qt::QueuedConnection);
    }
}

bool ScaleFollower::eventFilter(QObject *, QEvent *event)
{
    if (event->type() == QEvent::Show) {
        remember();
        m_hasFollowed = m_mustBePlaced;
    } else if (event->type() == QEvent::Paint && std::exchange(m_mustBePlaced, false)) {
        QMetaObject::invokeMethod(this, m_place, Qt::QueuedConnection);
    } else if (event->type() == QEvent::MouseButtonPress) {
        m_hasFollowed = false; // the user may be about to move it
    }
    return false;
}

void ScaleFollower::remember()
{
    m_screen = m_window.screen();
    m_ratio = m_window.devicePixelRatioF();
}

void ScaleFollower::check()
{
    const bool hasMoved = m_screen != m_window.screen();
    const bool isScaled = !qFuzzyCompare(m_ratio, m_window.devicePixelRatioF());
    remember();
    if (!m_window.isVisible() || hasMoved) {
        return;
    }
    if (isScaled) {
        showAgain();
    } else if (m_hasFollowed) {
        m_place(); // the screen's size, or its panels', may come after the scale
    }
}

void ScaleFollower::showAgain()
{
    const bool wasActive = m_window.isActiveWindow();
    // Mutter may show it elsewhere, because it learns of the new scale at another moment.
    m_mustBePlaced = true;
    m_windows.withdraw(m_window);
    m_place();
    if (wasActive) {
        m_windows.present(m_window);
    } else {
        m_windows.showInactive(m_window);
    }
}
