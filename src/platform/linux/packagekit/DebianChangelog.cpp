// SPDX-License-Identifier: MIT
#include "platform/linux/packagekit/DebianChangelog.h"

#include <QRegularExpression>
#include <QStringList>

QString releaseNotesOfDebianChangelog(const QString &changelog)
{
    static const QRegularExpression heading(QStringLiteral(R"(^\S+ \((\S+)\) .*;)"));
    QStringList notes;
    int versions = 0;
    const QStringList lines = changelog.split(u'\n');
    for (const QString &line : lines) {
        const QString text = line.trimmed();
        const QRegularExpressionMatch found = heading.match(line);
        if (found.hasMatch()) {
            notes += {QString(), found.captured(1)};
            ++versions;
        } else if (text.startsWith(u"* ")) {
            notes += u'•' + text.mid(1);
        } else if (!text.isEmpty() && !text.startsWith(u"-- ") && !notes.isEmpty()) {
            notes.last() += u' ' + text;
        }
    }
    if (versions == 0) {
        return changelog;
    }
    // Drops the first blank line and, if there is only one version, its heading.
    return notes.mid(versions == 1 ? 2 : 1).join(u'\n');
}
