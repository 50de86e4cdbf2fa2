// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Sounds.h"

/// No sound has any name.
class NoSounds final : public Sounds
{
public:
    [[nodiscard]] std::unique_ptr<Sound> soundNamed(const QString &) override { return nullptr; }
};
