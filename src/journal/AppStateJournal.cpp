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
    return files.appendOrCreate(folderPath + u'/' + dayFile.name(), '\n' + entry,
                                dayFile.header() + entry);
}
} // namespace

void AppState::savePrompt(const QString &text, const QDateTime &openedAt)
{
    // QString trims exactly the characters with Unicode's White_Space property.
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
