// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Program.h"

/// Restarts the program by launching a second copy while the first one ends.
class PlainProgram final : public Program
{
public:
    [[nodiscard]] QString path() const override;
    [[nodiscard]] bool canRestart() const override;
    void restart() override;
};
