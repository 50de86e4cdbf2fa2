// SPDX-License-Identifier: MIT
#pragma once

#include <QLocale>
#include <QString>
#include <QTime>

#include <optional>

/// The limits of the interval that can be chosen, and intervals and times as the user's locale
/// writes them.
namespace IntervalText
{
/// In minutes.
inline constexpr qint64 minimum = 1;
inline constexpr qint64 maximum = 1440;
inline constexpr qint64 step = 5;

/// 1440 as "1,440" in English.
[[nodiscard]] QString text(qint64 minutes, const QLocale &locale);

/// The integer that the user typed, with or without the locale's grouping; nullopt for any other
/// text and for numbers that do not fit 64 bits. Not limited to the range above.
[[nodiscard]] std::optional<qint64> parsed(const QString &text, const QLocale &locale);

/// The nearest number from minimum to maximum.
[[nodiscard]] qint64 clamped(qint64 minutes);

/// The time in the locale's short format, without the seconds that some locales include.
[[nodiscard]] QString hoursAndMinutes(const QTime &time, const QLocale &locale);
} // namespace IntervalText
