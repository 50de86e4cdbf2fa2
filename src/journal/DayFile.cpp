// SPDX-License-Identifier: MIT
#include "journal/DayFile.h"

DayFile::DayFile(const QDateTime &openedAt)
{
    // QDateTime always formats with ASCII digits and Gregorian years; QLocale may not.
    const QDateTime local = openedAt.toLocalTime();
    m_day = local.toString(QStringLiteral("yyyy-MM-dd"));
    m_time = local.toString(QStringLiteral("HH:mm"));
}

QString DayFile::name() const
{
    return m_day + QStringLiteral(".md");
}

QByteArray DayFile::header() const
{
    return "# " + m_day.toUtf8() + "\n\n";
}

QByteArray DayFile::entry(const QString &note) const
{
    return "## " + m_time.toUtf8() + '\n' + note.toUtf8() + '\n';
}
