// SPDX-License-Identifier: MIT
// What other programs send: the settings of the desktop, and the changelog of an update.
#include "Fuzz.h"
#include "platform/linux/packagekit/DebianChangelog.h"
#include "platform/linux/xsettings/XSettingsFormat.h"

#include <QHash>
#include <QString>
#include <QVariant>

int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray bytes = bytesOf(data, size);
    const auto settings = xSettingsIn(bytes);
    require(settings.size() <= bytes.size() / 8, "there are more settings than have room");

    const QString changelog = QString::fromUtf8(bytes);
    const QString notes = releaseNotesOfDebianChangelog(changelog);
    require(notes.size() <= changelog.size() + 8 * (changelog.count(u'\n') + 1),
            "the notes are longer than the changelog");
    return 0;
}
