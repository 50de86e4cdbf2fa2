// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Sounds.h"

class CanberraPlayer;

/// Our own sounds, played like the desktop's event sounds, so that the user's alert volume, mute
/// and device settings apply. The sound system's libraries are not loaded before the first sound.
class CanberraSounds final : public Sounds
{
public:
    CanberraSounds();
    ~CanberraSounds() override;
    Q_DISABLE_COPY_MOVE(CanberraSounds)

    [[nodiscard]] std::unique_ptr<Sound> soundNamed(const QString &name) override;

private:
    std::shared_ptr<CanberraPlayer> m_player;
};

/// The file of the sound with that name, in our sound theme next to the program or among the
/// installed ones; empty if there is none. Other themes are never searched.
[[nodiscard]] QString soundFilePath(const QString &name);
