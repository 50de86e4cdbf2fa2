// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Clock.h"

class SystemClock final : public Clock
{
public:
    [[nodiscard]] QDateTime now() const override { return QDateTime::currentDateTimeUtc(); }
};
