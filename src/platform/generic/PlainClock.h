// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Clock.h"

/// The system's clock. Does not notice when the clock is set or the time zone changes.
class PlainClock final : public Clock
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(PlainClock)

public:
    PlainClock() = default;

    [[nodiscard]] QDateTime now() const override { return QDateTime::currentDateTimeUtc(); }
};
