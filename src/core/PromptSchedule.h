// SPDX-License-Identifier: MIT
#pragma once

#include <QDateTime>

#include <chrono>
#include <optional>

/// The arithmetic of prompts that come by themselves.
namespace PromptSchedule
{
/// Nothing when the product does not fit 64 bits.
[[nodiscard]] std::optional<std::chrono::seconds> interval(qint64 minutes);

/// The instant @p interval after @p now; where no date can hold it, the last one that can.
[[nodiscard]] QDateTime nextPromptDate(const QDateTime &now, std::chrono::seconds interval);

/// "Every 60 min → Journal".
[[nodiscard]] QString statusLine(qint64 intervalMinutes, const QString &folderPath);
} // namespace PromptSchedule
