// SPDX-License-Identifier: MIT
#include "core/PromptSchedule.h"

#include "core/PathText.h"

#include <limits>

namespace PromptSchedule
{
namespace
{
// A QDateTime counts milliseconds in 64 bits.
constexpr std::chrono::milliseconds latestInstant{std::numeric_limits<qint64>::max()};
} // namespace

std::optional<std::chrono::seconds> interval(qint64 minutes)
{
    qint64 seconds = 0;
    if (__builtin_mul_overflow(minutes, qint64{60}, &seconds)) {
        return std::nullopt;
    }
    return std::chrono::seconds(seconds);
}

QDateTime nextPromptDate(const QDateTime &now, std::chrono::seconds interval)
{
    const std::chrono::milliseconds sinceEpoch(now.toMSecsSinceEpoch());
    const auto left = std::chrono::floor<std::chrono::seconds>(latestInstant - sinceEpoch);
    const auto sinceEpochThen = interval > left ? latestInstant : sinceEpoch + interval;
    QDateTime next = now;
    next.setMSecsSinceEpoch(sinceEpochThen.count());
    return next;
}

QString statusLine(qint64 intervalMinutes, const QString &folderPath)
{
    return QStringLiteral("Every ") + QString::number(intervalMinutes) + QStringLiteral(" min → ")
        + lastPathComponent(folderPath);
}
} // namespace PromptSchedule
