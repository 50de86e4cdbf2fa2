// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Compositor.h"

/// Nobody who would tell whether windows are composited, so that none is translucent.
class NoCompositor final : public Compositor
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(NoCompositor)

public:
    NoCompositor() = default;

    [[nodiscard]] bool isRunning() const override { return false; }
    [[nodiscard]] bool blursBehind() const override { return false; }
};
