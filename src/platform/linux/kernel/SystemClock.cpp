// SPDX-License-Identifier: MIT
#include "platform/linux/kernel/SystemClock.h"

#include "platform/linux/kernel/LinkWatcher.h"

#include <QMetaMethod>
#include <QSocketNotifier>

#include <cerrno>
#include <limits>
#include <sys/timerfd.h>
#include <unistd.h>

SystemClock::SystemClock(QString zonePath)
    : m_zonePath(std::move(zonePath))
    , m_descriptor(timerfd_create(CLOCK_REALTIME, TFD_NONBLOCK | TFD_CLOEXEC))
    , m_notifier(new QSocketNotifier(m_descriptor, QSocketNotifier::Read, this))
{
    // A timer that never expires and can only be cancelled.
    itimerspec never{};
    never.it_value.tv_sec = std::numeric_limits<time_t>::max();
    timerfd_settime(m_descriptor, TFD_TIMER_ABSTIME | TFD_TIMER_CANCEL_ON_SET, &never, nullptr);
    connect(m_notifier, &QSocketNotifier::activated, this, &SystemClock::readTimer);
}

SystemClock::~SystemClock()
{
    m_notifier->setEnabled(false);
    close(m_descriptor);
}

void SystemClock::readTimer()
{
    quint64 expirations = 0;
    if (read(m_descriptor, &expirations, sizeof expirations) < 0 && errno == ECANCELED) {
        emit wasSet();
    }
}

void SystemClock::connectNotify(const QMetaMethod &signal)
{
    // The zone is watched only on demand: only views that show a time need it, and there are none
    // at startup.
    if (signal == QMetaMethod::fromSignal(&Clock::zoneChanged) && !m_watchesZone) {
        m_watchesZone = true;
        watchZone();
    }
}

void SystemClock::watchZone()
{
    auto *const watcher = new LinkWatcher(m_zonePath, this);
    connect(watcher, &LinkWatcher::changed, this, &Clock::zoneChanged);
}
