// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractEventDispatcher>
#include <QObject>

#include <algorithm>
#include <chrono>
#include <ctime>

/// How much work the main thread does at most between two moments in which its event loop is free.
/// Counts the thread's own processor time, so that a busy machine makes no difference.
class EventLoopMeter final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(EventLoopMeter)

public:
    EventLoopMeter() = default;

    void start()
    {
        auto *const dispatcher = QAbstractEventDispatcher::instance();
        connect(dispatcher, &QAbstractEventDispatcher::awake, this, &EventLoopMeter::startTurn,
                Qt::UniqueConnection);
        connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock, this, &EventLoopMeter::endTurn,
                Qt::UniqueConnection);
        m_longestTurn = {};
        startTurn();
    }
    [[nodiscard]] std::chrono::nanoseconds longestTurn() const { return m_longestTurn; }

private:
    void startTurn() { m_turnStarted = worked(); }
    void endTurn() { m_longestTurn = std::max(m_longestTurn, worked() - m_turnStarted); }

    static std::chrono::nanoseconds worked()
    {
        timespec time{};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
    }

    std::chrono::nanoseconds m_turnStarted{};
    std::chrono::nanoseconds m_longestTurn{};
};
