// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Sounds.h"

/// There are no sounds.
class NoSounds final : public Sounds
{
public:
    [[nodiscard]] std::unique_ptr<Sound> soundNamed(const QString &) override { return nullptr; }
};
