// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Sounds.h"

/// A machine without alert sounds.
class SilentSounds final : public Sounds
{
public:
    [[nodiscard]] std::unique_ptr<Sound> soundNamed(const QString &) override { return nullptr; }
};
