// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Timers.h"

/// Timers of the kernel on CLOCK_BOOTTIME, which counts the computer's sleep (timerfd_create(2)).
/// QTimer would count milliseconds in 32 bits, so intervals over 24 days would come early.
class BootTimeTimers final : public Timers
{
public:
    [[nodiscard]] std::unique_ptr<RepeatingTimer> repeat(std::chrono::seconds interval,
                                                         std::function<void()> action) override;
};
