// SPDX-License-Identifier: MIT
// A preferences file with any content: it can be read, and what it says survives a change.
#include "Fuzz.h"
#include "platform/generic/PreferencesFile.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

namespace
{
const QString folder = QStringLiteral("folderPath");
const QString interval = QStringLiteral("intervalMinutes");
const QString theme = QStringLiteral("theme");
} // namespace

int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static int argc = 0;
    static const QCoreApplication application(argc, nullptr);
    static const QTemporaryDir place;
    const QString path = place.filePath(QStringLiteral("Tovla.conf"));
    QFile file(path);
    require(file.open(QIODevice::WriteOnly), "the file cannot be written");
    file.write(bytesOf(data, size));
    file.close();

    std::optional<QString> folderBefore;
    qint64 intervalBefore = 0;
    {
        PreferencesFile preferences(path);
        folderBefore = preferences.string(folder);
        intervalBefore = preferences.integer(interval);
        preferences.setString(theme, QStringLiteral("dark"));
    }
    const PreferencesFile preferences(path);
    require(preferences.string(theme) == QStringLiteral("dark"), "a preference is not kept");
    require(preferences.string(folder) == folderBefore, "the folder is lost");
    require(preferences.integer(interval) == intervalBefore, "the interval is lost");
    return 0;
}
