// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <chrono>
#include <functional>
#include <memory>

/// A running repeating timer. Destroying it stops it for good.
class RepeatingTimer
{
public:
    RepeatingTimer() = default;
    virtual ~RepeatingTimer() = default;
    Q_DISABLE_COPY_MOVE(RepeatingTimer)

    /// Until the next call; a part of a second counts as a whole one.
    [[nodiscard]] virtual std::chrono::seconds remaining() const = 0;
};

/// Makes timers that wake the program once an interval and never in between.
class Timers
{
public:
    Timers() = default;
    virtual ~Timers() = default;
    Q_DISABLE_COPY_MOVE(Timers)

    /// Calls @p action on the main thread every @p interval from now on, also while a menu or a
    /// modal window is open. The time that the computer sleeps counts; however many intervals
    /// passed meanwhile, there is one call, and the next comes a whole interval after it.
    /// @p interval is positive and may be as long as 64 bits hold.
    [[nodiscard]] virtual std::unique_ptr<RepeatingTimer> repeat(std::chrono::seconds interval,
                                                                 std::function<void()> action)
        = 0;
};
