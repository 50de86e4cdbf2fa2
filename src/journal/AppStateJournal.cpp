// SPDX-License-Identifier: MIT
#include "core/AppState.h"
#include "journal/DayFile.h"
#include "platform/Files.h"

namespace
{
Files::Failure addEntry(Files &files, const QString &folderPath, const DayFile &dayFile,
                        const QString &note)
{
    if (auto failure = files.ensureDirectory(folderPath)) {
        return failure;
    }
    const QByteArray entry = dayFile.entry(note);
    // An entry that follows another is preceded by an empty line (docs/journal-format.md).
    return files.appendOrCreate(folderPath + u'/' + dayFile.name(), '\n' + entry,
                                dayFile.header() + entry);
}
} // namespace

void AppState::savePrompt(const QString &text, const QDateTime &openedAt)
{
    // The format removes Unicode white space (White_Space) from both ends, which is exactly what
    // trimmed() does. The prompt submits trimmed notes only, but this guarantees the format.
    const QString note = text.trimmed();
    if (note.isEmpty()) {
        return;
    }
    if (m_folderPath.isEmpty()) {
        showJournalAlert(QStringLiteral("Pick a folder in Settings before saving entries."));
        return;
    }
    if (const auto failure = addEntry(*m_desktop.files, m_folderPath, DayFile(openedAt), note)) {
        showJournalAlert(QStringLiteral("Could not save entry: ") + *failure);
    }
}

void AppState::showJournalAlert(const QString &informativeText)
{
    m_desktop.alerts->warn(QStringLiteral("Journal"), informativeText, m_promptWindow.get());
}
