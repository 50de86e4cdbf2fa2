// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

/// An alert sound, ready to be played.
class Sound
{
public:
    Sound() = default;
    virtual ~Sound() = default;
    Q_DISABLE_COPY_MOVE(Sound)

    /// Starts the sound and returns immediately. If it cannot be played, nothing happens.
    virtual void play() = 0;
    virtual void stop() = 0;
};
