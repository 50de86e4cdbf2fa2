// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Program.h"

/// A program that is started again beside itself while it ends.
class PlainProgram final : public Program
{
public:
    [[nodiscard]] QString path() const override;
    [[nodiscard]] bool canRestart() const override;
    void restart() override;
};
