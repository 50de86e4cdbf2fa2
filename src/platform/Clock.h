// SPDX-License-Identifier: MIT
#pragma once

#include <QDateTime>

/// Tells the time of day.
class Clock
{
public:
    Clock() = default;
    virtual ~Clock() = default;
    Q_DISABLE_COPY_MOVE(Clock)

    /// The present moment as an instant: always in UTC, so that it survives a change of time zone.
    [[nodiscard]] virtual QDateTime now() const = 0;
};
