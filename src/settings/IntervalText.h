// SPDX-License-Identifier: MIT
#pragma once

#include <QLocale>
#include <QString>
#include <QTime>

#include <optional>

/// Numbers and times as the user's locale writes them.
namespace IntervalText
{
inline constexpr qint64 minimum = 1;
inline constexpr qint64 maximum = 1440;
inline constexpr qint64 step = 5;

/// 1440 as "1,440" in English.
[[nodiscard]] QString text(qint64 minutes, const QLocale &locale);

/// The integer that the user typed, with or without the locale's grouping; nothing for any other
/// text and for what does not fit 64 bits.
[[nodiscard]] std::optional<qint64> parsed(const QString &text, const QLocale &locale);

/// From minimum to maximum.
[[nodiscard]] qint64 clamped(qint64 minutes);

/// The time without seconds, which some locales' short format has.
[[nodiscard]] QString hoursAndMinutes(const QTime &time, const QLocale &locale);
} // namespace IntervalText
