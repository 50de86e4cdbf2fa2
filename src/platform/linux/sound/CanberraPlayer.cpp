// SPDX-License-Identifier: MIT
#include "platform/linux/sound/CanberraPlayer.h"

#include <QLibrary>

#include <canberra.h>
#include <thread>
#include <utility>

namespace
{
/// The library's functions, loaded with the first sound; all null if it is not installed.
struct Canberra {
    Canberra()
    {
        QLibrary library(QStringLiteral("canberra"), 0);
        const auto load = [&library](auto &function, const char *name) {
            function = reinterpret_cast<std::remove_reference_t<decltype(function)>>(
                library.resolve(name));
        };
        load(create, "ca_context_create");
        load(destroy, "ca_context_destroy");
        load(play, "ca_context_play");
        load(cancel, "ca_context_cancel");
    }

    decltype(&ca_context_create) create = nullptr;
    decltype(&ca_context_destroy) destroy = nullptr;
    decltype(&ca_context_play) play = nullptr;
    decltype(&ca_context_cancel) cancel = nullptr;
};

/// A connection to the sound server. It never recovers when the server dies (libcanberra 0.30), so
/// it is created again after every error.
class Connection final
{
public:
    void stop()
    {
        if (m_context) {
            m_canberra.cancel(m_context, soundId);
        }
    }

    void play(const QByteArray &filePath)
    {
        if (!m_canberra.create || !m_canberra.play) {
            return;
        }
        constexpr int tries = 2;
        for (int left = tries; left > 0 && !tryToPlay(filePath); --left) {
            m_canberra.destroy(m_context);
            m_context = nullptr;
        }
    }

private:
    static constexpr uint32_t soundId = 1;

    bool tryToPlay(const QByteArray &filePath)
    {
        if (!m_context && m_canberra.create(&m_context) != CA_SUCCESS) {
            m_context = nullptr;
            return true; // no sound system: another attempt would not help
        }
        return m_canberra.play(m_context, soundId, CA_PROP_MEDIA_FILENAME, filePath.constData(),
                               CA_PROP_MEDIA_ROLE, "event", CA_PROP_MEDIA_NAME, "Tovla",
                               CA_PROP_APPLICATION_NAME, "Tovla", CA_PROP_APPLICATION_ID,
                               "org.tovla.Tovla", CA_PROP_CANBERRA_CACHE_CONTROL, "never", nullptr)
            == CA_SUCCESS;
    }

    Canberra m_canberra;
    ca_context *m_context = nullptr;
};
} // namespace

void CanberraPlayer::play(const QByteArray &filePath)
{
    const std::scoped_lock lock(m_mutex);
    m_wish = filePath;
    m_hasWish = true;
    if (!std::exchange(m_isRunning, true)) {
        // Never joined, because it may be waiting for a hung sound server when the program ends.
        std::thread([player = shared_from_this()] { player->run(); }).detach();
    }
    m_wishChanged.notify_one();
}

void CanberraPlayer::run()
{
    Connection connection;
    while (true) {
        std::unique_lock lock(m_mutex);
        m_wishChanged.wait(lock, [this] { return m_hasWish; });
        m_hasWish = false;
        const QByteArray filePath = m_wish;
        lock.unlock();
        connection.stop();
        if (!filePath.isEmpty()) {
            connection.play(filePath);
        }
    }
}
