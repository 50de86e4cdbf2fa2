// SPDX-License-Identifier: MIT
#pragma once

#include "platform/RunningCopy.h"

/// Nobody who could tell of another copy, or pass on what others ask.
class OnlyCopy final : public RunningCopy
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(OnlyCopy)

public:
    OnlyCopy() = default;

    void claim() override
    {
        QMetaObject::invokeMethod(this, &RunningCopy::isFirst, Qt::QueuedConnection);
    }
};
