// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractEventDispatcher>
#include <QObject>

#include <algorithm>
#include <chrono>
#include <ctime>

#if defined(__SANITIZE_ADDRESS__)
#define TOVLA_IS_SANITIZED 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define TOVLA_IS_SANITIZED 1
#endif
#endif

/// Measures the longest iteration of the main thread's event loop, in the thread's own processor
/// time, so that a busy machine makes no difference.
class EventLoopMeter final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(EventLoopMeter)

public:
    /// The limit for an iteration: one of 60 frames per second. A sanitized program needs several
    /// times as long.
#ifdef TOVLA_IS_SANITIZED
    static constexpr std::chrono::milliseconds frame{5 * 16};
#else
    static constexpr std::chrono::milliseconds frame{16};
#endif

    EventLoopMeter() = default;

    void start()
    {
        // Emitted once per iteration, whether it waits for events or only handles pending ones.
        connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::awake, this,
                &EventLoopMeter::endTurn, Qt::UniqueConnection);
        m_longestTurn = {};
        m_turns = 0;
        m_turnStarted = worked();
    }
    [[nodiscard]] std::chrono::nanoseconds longestTurn() const
    {
        return m_longestTurn;
    }
    [[nodiscard]] int turns() const
    {
        return m_turns;
    }

private:
    void endTurn()
    {
        const auto now = worked();
        m_longestTurn = std::max(m_longestTurn, now - m_turnStarted);
        m_turnStarted = now;
        ++m_turns;
    }

    static std::chrono::nanoseconds worked()
    {
        timespec time{};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
    }

    std::chrono::nanoseconds m_turnStarted{};
    std::chrono::nanoseconds m_longestTurn{};
    int m_turns = 0;
};
