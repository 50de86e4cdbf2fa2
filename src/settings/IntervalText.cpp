// SPDX-License-Identifier: MIT
#include "settings/IntervalText.h"

#include <QRegularExpression>

#include <algorithm>

namespace IntervalText
{
namespace
{
/// Some locales group with a kind of space that cannot be typed.
QString withTypedSpaces(QString text, const QLocale &locale)
{
    const QString group = locale.groupSeparator();
    if (group.size() == 1 && group.at(0).isSpace()) {
        for (const QChar space : {QChar(u' '), QChar(u'\u00A0'), QChar(u'\u202F')}) {
            text.replace(space, group.at(0));
        }
    }
    return text;
}
} // namespace

QString text(qint64 minutes, const QLocale &locale)
{
    return locale.toString(minutes);
}

std::optional<qint64> parsed(const QString &text, const QLocale &locale)
{
    const QString trimmed = text.trimmed();
    if (trimmed.contains(QChar::Null)) { // the toolkit would stop parsing there
        return std::nullopt;
    }
    bool isInteger = false;
    const qint64 local = locale.toLongLong(withTypedSpaces(trimmed, locale), &isInteger);
    if (isInteger) {
        return local;
    }
    const qint64 plain = trimmed.toLongLong(&isInteger);
    return isInteger ? std::optional(plain) : std::nullopt;
}

qint64 clamped(qint64 minutes)
{
    return std::clamp(minutes, minimum, maximum);
}

QString hoursAndMinutes(const QTime &time, const QLocale &locale)
{
    // The seconds and the separator before them, unless that is white space or the quote of a
    // literal text.
    static const QRegularExpression seconds(QStringLiteral("[^\\w\\s']?s{1,2}"));
    QString format = locale.timeFormat(QLocale::ShortFormat);
    return locale.toString(time, format.remove(seconds));
}
} // namespace IntervalText
