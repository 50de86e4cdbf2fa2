// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Timers.h"

/// The toolkit's timer, set anew as often as an interval longer than it can count takes. Whether
/// the computer's sleep counts is the system's to decide.
class ToolkitTimers final : public Timers
{
public:
    [[nodiscard]] std::unique_ptr<RepeatingTimer> repeat(std::chrono::seconds interval,
                                                         std::function<void()> action) override;
};
