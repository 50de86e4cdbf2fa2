// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QtGlobal>

#include <memory>

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
