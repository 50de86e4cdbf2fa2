// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>

/// The Markdown file of one calendar day: its name, its heading and the shape of an entry, as
/// docs/journal-format.md describes them to other programs.
/// Knows text only; it neither opens files nor asks for the time.
class DayFile final
{
public:
    /// @p openedAt is an instant (UTC); its day and time are read in the time zone in force when
    /// this is called.
    explicit DayFile(const QDateTime &openedAt);

    /// "2026-11-15.md"; ASCII digits whatever the locale.
    [[nodiscard]] QString name() const;

    /// What opens a new file: the day's heading and one blank line, as UTF-8 with LF.
    [[nodiscard]] QByteArray header() const;

    /// The heading with the time, the note exactly as given, and a line end.
    [[nodiscard]] QByteArray entry(const QString &note) const;

private:
    QString m_day;
    QString m_time;
};
