// SPDX-License-Identifier: MIT
#include "core/AppState.h"
#include "journal/DayFile.h"
#include "platform/Files.h"

namespace
{
Files::Failure appendEntry(const QString &folderPath, const DayFile &dayFile, const QString &note)
{
    if (!Files::exists(folderPath)) {
        if (auto failure = Files::createDirectories(folderPath)) {
            return failure;
        }
    }
    const QString path = folderPath + u'/' + dayFile.name();
    if (Files::exists(path)) {
        return Files::append(path, '\n' + dayFile.entry(note));
    }
    return Files::writeWhole(path, dayFile.header() + dayFile.entry(note));
}
} // namespace

void AppState::savePrompt(const QString &text, const QDateTime &openedAt)
{
    // QString's idea of white space is exactly Unicode's White_Space property.
    const QString note = text.trimmed();
    if (note.isEmpty()) {
        return;
    }
    if (m_folderPath.isEmpty()) {
        showJournalAlert(QStringLiteral("Pick a folder in Settings before saving entries."));
        return;
    }
    if (const auto failure = appendEntry(m_folderPath, DayFile(openedAt), note)) {
        showJournalAlert(QStringLiteral("Could not save entry: ") + *failure);
    }
}

void AppState::showJournalAlert(const QString &informativeText)
{
    m_desktop.alerts->warn(QStringLiteral("Journal"), informativeText, m_promptWindow.get());
}
