// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QtGlobal>

#include <condition_variable>
#include <memory>
#include <mutex>

/// Plays one sound at a time through libcanberra, on a thread of its own: a sound server that hangs
/// makes a call into the library hang for ever, and then costs no more than the sound.
class CanberraPlayer final : public std::enable_shared_from_this<CanberraPlayer>
{
public:
    CanberraPlayer() = default;
    ~CanberraPlayer() = default;
    Q_DISABLE_COPY_MOVE(CanberraPlayer)

    /// Stops what plays and starts the sound in this file; the empty path only stops. Returns at
    /// once; the last wish wins.
    void play(const QByteArray &filePath);

private:
    void run();

    std::mutex m_mutex;
    std::condition_variable m_wishChanged;
    bool m_isRunning = false;
    bool m_hasWish = false;
    QByteArray m_wish;
};
