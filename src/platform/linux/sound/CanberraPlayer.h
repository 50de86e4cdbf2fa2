// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QtGlobal>

#include <condition_variable>
#include <memory>
#include <mutex>

/// Plays one sound at a time with libcanberra, in a separate thread: if the sound server hangs,
/// calls into the library never return, but only the sound is lost.
class CanberraPlayer final : public std::enable_shared_from_this<CanberraPlayer>
{
public:
    CanberraPlayer() = default;
    ~CanberraPlayer() = default;
    Q_DISABLE_COPY_MOVE(CanberraPlayer)

    /// Stops the current sound and starts the one in @p filePath; an empty path only stops. Returns
    /// immediately. A later call replaces one that is still pending.
    void play(const QByteArray &filePath);

private:
    void run();

    std::mutex m_mutex;
    std::condition_variable m_wishChanged;
    bool m_isRunning = false;
    bool m_hasWish = false;
    QByteArray m_wish;
};
