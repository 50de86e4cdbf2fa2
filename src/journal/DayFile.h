// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>

/// The Markdown file of one calendar day: its name, its heading and the format of an entry, as
/// documented in docs/journal-format.md. Deals with text only; it neither opens files nor reads the
/// clock.
class DayFile final
{
public:
    /// @p openedAt is in UTC. It is converted to the time zone in force at the time of the call.
    explicit DayFile(const QDateTime &openedAt);

    /// For example "2026-11-15.md"; always in ASCII digits.
    [[nodiscard]] QString name() const;

    /// The start of a new file: the day's heading and one blank line, as UTF-8 with LF.
    [[nodiscard]] QByteArray header() const;

    /// The heading with the time, the note exactly as given, and LF.
    [[nodiscard]] QByteArray entry(const QString &note) const;

private:
    QString m_day;
    QString m_time;
};
