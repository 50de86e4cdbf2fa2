// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Sounds.h"

class CanberraPlayer;

/// Our own sounds, played as the desktop's event sounds are, so that the user's alert volume, mute
/// and device hold. Nothing of the sound system is loaded before the first sound.
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

/// The file of the sound of that name in the installed theme, or in the one beside the program;
/// empty when there is none. No other theme is ever looked into.
[[nodiscard]] QString soundFilePath(const QString &name);
