// SPDX-License-Identifier: MIT
#pragma once

#include <QDateTime>

#include <chrono>
#include <optional>

/// When scheduled prompts open, and how the schedule is worded.
namespace PromptSchedule
{
/// nullopt if the number of seconds does not fit 64 bits.
[[nodiscard]] std::optional<std::chrono::seconds> interval(qint64 minutes);

/// The time @p interval after @p now, limited to the latest time that a QDateTime can represent.
[[nodiscard]] QDateTime nextPromptDate(const QDateTime &now, std::chrono::seconds interval);

/// For example "Every 60 min → Journal".
[[nodiscard]] QString statusLine(qint64 intervalMinutes, const QString &folderPath);
} // namespace PromptSchedule
