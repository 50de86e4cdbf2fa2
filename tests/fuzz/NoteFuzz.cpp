// SPDX-License-Identifier: MIT
// The note's path from what was pasted to the bytes in the day file.
#include "Fuzz.h"
#include "journal/DayFile.h"
#include "prompt/PlainText.h"

#include <QDateTime>
#include <QString>
#include <QTimeZone>

#include <cstring>

namespace
{
/// Slow and obvious.
QString plainTextByReplacing(QString text)
{
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    for (const char16_t lineBreak : {u'\r', u'\u2028', u'\u2029'}) {
        text.replace(QChar(lineBreak), u'\n');
    }
    for (const char16_t mark : {u'\0', u'\uFDD0', u'\uFDD1'}) {
        text.replace(QChar(mark), QChar::ReplacementCharacter);
    }
    for (qsizetype i = 0; i < text.size(); ++i) {
        const bool isPair = text.at(i).isHighSurrogate() && i + 1 < text.size()
            && text.at(i + 1).isLowSurrogate();
        if (isPair) {
            ++i;
        } else if (text.at(i).isSurrogate()) {
            text[i] = QChar::ReplacementCharacter;
        }
    }
    return text;
}
} // namespace

int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    QString pasted(static_cast<qsizetype>(size / 2), Qt::Uninitialized);
    std::memcpy(pasted.data(), data, size / 2 * 2);
    const QString note = plainText(pasted);
    require(note == plainTextByReplacing(pasted), "the note differs from the obvious one");
    require(plainText(note) == note, "a plain note is not left as it is");

    const DayFile day(QDateTime(QDate(2026, 11, 15), QTime(13, 30), QTimeZone::utc()));
    const QByteArray entry = day.entry(note);
    require(entry.startsWith("## ") && entry.endsWith('\n'), "the entry has no frame");
    const QString read = QString::fromUtf8(entry);
    const qsizetype start = read.indexOf(u'\n') + 1;
    require(read.sliced(start, read.size() - start - 1) == note, "the note cannot be read back");
    return 0;
}
