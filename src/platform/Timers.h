// SPDX-License-Identifier: MIT
#pragma once

#include "platform/RepeatingTimer.h"

#include <QtGlobal>

#include <chrono>
#include <functional>
#include <memory>

/// Creates timers that wake the program once per interval and not in between.
class Timers
{
public:
    Timers() = default;
    virtual ~Timers() = default;
    Q_DISABLE_COPY_MOVE(Timers)

    /// Calls @p action on the main thread every @p interval from now on, even while a menu or a
    /// modal window is open. Time during which the computer sleeps counts. After a sleep there is
    /// only one call, however many intervals have passed, and the next comes a full interval later.
    /// @p interval must be positive and can be any 64-bit value.
    [[nodiscard]] virtual std::unique_ptr<RepeatingTimer> repeat(std::chrono::seconds interval,
                                                                 std::function<void()> action)
        = 0;
};
