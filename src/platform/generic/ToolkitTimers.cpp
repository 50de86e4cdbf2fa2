// SPDX-License-Identifier: MIT
#include "platform/generic/ToolkitTimers.h"

#include <QTimer>

#include <algorithm>

namespace
{
using Clock = std::chrono::steady_clock;

// QTimer counts in a signed 32-bit number of milliseconds, which is 24 days.
constexpr std::chrono::seconds longestStep = std::chrono::hours(24);
// Keeps the due time within the range of a time point.
constexpr std::chrono::seconds longestInterval = std::chrono::hours(24 * 365 * 100);

class ToolkitTimer final : public RepeatingTimer
{
public:
    ToolkitTimer(std::chrono::seconds interval, std::function<void()> action)
        : m_interval(std::min(interval, longestInterval))
        , m_action(std::move(action))
    {
        m_timer.setSingleShot(true);
        m_timer.setTimerType(Qt::VeryCoarseTimer);
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { expire(); });
        begin();
    }

    [[nodiscard]] std::chrono::seconds remaining() const override
    {
        return std::max(std::chrono::ceil<std::chrono::seconds>(m_due - Clock::now()),
                        std::chrono::seconds(0));
    }

private:
    void begin()
    {
        m_due = Clock::now() + m_interval;
        step();
    }

    void step() { m_timer.start(std::min(remaining(), longestStep)); }

    void expire()
    {
        if (remaining() > std::chrono::seconds(0)) {
            step();
            return;
        }
        begin();
        // The action may destroy this timer and, with it, the function being called.
        const auto action = m_action;
        action();
    }

    std::chrono::seconds m_interval;
    std::function<void()> m_action;
    QTimer m_timer;
    Clock::time_point m_due;
};
} // namespace

std::unique_ptr<RepeatingTimer> ToolkitTimers::repeat(std::chrono::seconds interval,
                                                      std::function<void()> action)
{
    return std::make_unique<ToolkitTimer>(interval, std::move(action));
}
