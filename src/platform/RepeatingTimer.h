// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <chrono>

/// A running repeating timer. Destroying it stops it.
class RepeatingTimer
{
public:
    RepeatingTimer() = default;
    virtual ~RepeatingTimer() = default;
    Q_DISABLE_COPY_MOVE(RepeatingTimer)

    /// The time until the next call, rounded up to seconds.
    [[nodiscard]] virtual std::chrono::seconds remaining() const = 0;
};
