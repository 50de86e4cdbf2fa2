// SPDX-License-Identifier: MIT
#include "platform/linux/sound/CanberraSounds.h"

#include "platform/linux/sound/CanberraPlayer.h"

#include <QCoreApplication>
#include <QFile>
#include <QStandardPaths>

namespace
{
class CanberraSound final : public Sound
{
public:
    CanberraSound(std::shared_ptr<CanberraPlayer> player, const QString &path)
        : m_player(std::move(player))
        , m_filePath(QFile::encodeName(path))
    {
    }

    void play() override { m_player->play(m_filePath); }
    void stop() override { m_player->play({}); }

private:
    std::shared_ptr<CanberraPlayer> m_player;
    QByteArray m_filePath;
};
} // namespace

CanberraSounds::CanberraSounds()
    : m_player(std::make_shared<CanberraPlayer>())
{
}

CanberraSounds::~CanberraSounds() = default;

std::unique_ptr<Sound> CanberraSounds::soundNamed(const QString &name)
{
    const QString path = soundFilePath(name);
    return path.isEmpty() ? nullptr : std::make_unique<CanberraSound>(m_player, path);
}

QString soundFilePath(const QString &name)
{
    if (name.isEmpty() || name.contains(u'/') || name.contains(QChar::Null)) {
        return {};
    }
    QStringList dataDirs{QCoreApplication::applicationDirPath() + QStringLiteral("/../share")};
    dataDirs += QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation);
    for (const QString &dir : std::as_const(dataDirs)) {
        QString path = QStringLiteral("%1/sounds/tovla/stereo/%2.wav").arg(dir, name);
        if (QFile::exists(path)) {
            return path;
        }
    }
    return {};
}
