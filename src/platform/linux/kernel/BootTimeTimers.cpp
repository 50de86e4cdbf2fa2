// SPDX-License-Identifier: MIT
#include "platform/linux/kernel/BootTimeTimers.h"

#include "platform/generic/ToolkitTimers.h"

#include <QSocketNotifier>

#include <sys/timerfd.h>
#include <unistd.h>

namespace
{
class BootTimeTimer final : public RepeatingTimer
{
public:
    /// Takes ownership of @p descriptor, a kernel timer.
    BootTimeTimer(int descriptor, std::chrono::seconds interval, std::function<void()> action)
        : m_descriptor(descriptor)
        , m_notifier(m_descriptor, QSocketNotifier::Read)
        , m_interval(interval)
        , m_action(std::move(action))
    {
        QObject::connect(&m_notifier, &QSocketNotifier::activated, &m_notifier,
                         [this] { expire(); });
        arm();
    }

    ~BootTimeTimer() override
    {
        m_notifier.setEnabled(false);
        close(m_descriptor);
    }

    Q_DISABLE_COPY_MOVE(BootTimeTimer)

    [[nodiscard]] std::chrono::seconds remaining() const override
    {
        itimerspec setting{};
        timerfd_gettime(m_descriptor, &setting);
        const int begun = setting.it_value.tv_nsec > 0 ? 1 : 0;
        return std::chrono::seconds(setting.it_value.tv_sec + begun);
    }

private:
    void arm()
    {
        itimerspec setting{};
        setting.it_value.tv_sec = m_interval.count();
        setting.it_interval.tv_sec = m_interval.count();
        timerfd_settime(m_descriptor, 0, &setting, nullptr);
    }

    void expire()
    {
        quint64 intervalsPassed = 0;
        if (read(m_descriptor, &intervalsPassed, sizeof intervalsPassed)
            != ssize_t{sizeof intervalsPassed}) {
            return;
        }
        if (intervalsPassed > 1) {
            // Otherwise the kernel would keep its schedule, and the next call would come early.
            arm();
        }
        // The action may destroy this timer and, with it, the function being called.
        const auto action = m_action;
        action();
    }

    int m_descriptor;
    QSocketNotifier m_notifier;
    std::chrono::seconds m_interval;
    std::function<void()> m_action;
};
} // namespace

std::unique_ptr<RepeatingTimer> BootTimeTimers::repeat(std::chrono::seconds interval,
                                                       std::function<void()> action)
{
    const int descriptor = timerfd_create(CLOCK_BOOTTIME, TFD_NONBLOCK | TFD_CLOEXEC);
    if (descriptor < 0) {
        // No descriptor is left. A timer that may not count sleep is better than none.
        return ToolkitTimers().repeat(interval, std::move(action));
    }
    return std::make_unique<BootTimeTimer>(descriptor, interval, std::move(action));
}
