// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Timers.h"

/// The toolkit's timer, restarted as often as needed for intervals beyond its range. Whether time
/// during which the computer sleeps counts depends on the system.
class ToolkitTimers final : public Timers
{
public:
    [[nodiscard]] std::unique_ptr<RepeatingTimer> repeat(std::chrono::seconds interval,
                                                         std::function<void()> action) override;
};
