// SPDX-License-Identifier: MIT
#pragma once

#include "platform/RunningCopy.h"

/// Assumes that this is the only copy: there is no way to find another one or to receive requests.
class OnlyCopy final : public RunningCopy
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(OnlyCopy)

public:
    OnlyCopy() = default;

    [[nodiscard]] bool wasStartedByHand() const override { return false; }
    void claim() override
    {
        QMetaObject::invokeMethod(this, &RunningCopy::becameFirst, Qt::QueuedConnection);
    }
};
