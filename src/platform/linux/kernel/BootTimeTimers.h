// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Timers.h"

/// Kernel timers on CLOCK_BOOTTIME, which includes time during which the computer sleeps
/// (timerfd_create(2)). QTimer counts in a signed 32-bit number of milliseconds, so intervals over
/// 24 days would end early.
class BootTimeTimers final : public Timers
{
public:
    [[nodiscard]] std::unique_ptr<RepeatingTimer> repeat(std::chrono::seconds interval,
                                                         std::function<void()> action) override;
};
