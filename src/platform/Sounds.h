// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Sound.h"

#include <QString>
#include <QtGlobal>

#include <memory>

/// The available alert sounds.
class Sounds
{
public:
    Sounds() = default;
    virtual ~Sounds() = default;
    Q_DISABLE_COPY_MOVE(Sounds)

    /// Null if no sound has exactly this name.
    [[nodiscard]] virtual std::unique_ptr<Sound> soundNamed(const QString &name) = 0;
};
