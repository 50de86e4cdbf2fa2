// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Compositor.h"

/// Assumes that there is no compositor, because there is no way to find out. No window is
/// translucent.
class NoCompositor final : public Compositor
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(NoCompositor)

public:
    NoCompositor() = default;

    [[nodiscard]] bool isRunning() const override { return false; }
    [[nodiscard]] bool blursBehind() const override { return false; }
};
