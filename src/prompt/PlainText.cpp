// SPDX-License-Identifier: MIT
#include "prompt/PlainText.h"

#include <algorithm>

namespace
{
// QTextBeginningOfFrame and QTextEndOfFrame, with which QTextDocument marks frames.
constexpr char16_t firstFrameMark = 0xFDD0;
constexpr char16_t lastFrameMark = 0xFDD1;

bool isOrdinary(QChar character)
{
    const char16_t unit = character.unicode();
    return unit != 0 && unit != u'\r' && unit != QChar::LineSeparator
        && unit != QChar::ParagraphSeparator && !character.isSurrogate()
        && (unit < firstFrameMark || unit > lastFrameMark);
}

bool isLineBreak(QChar character)
{
    return character == u'\r' || character == QChar::LineSeparator
        || character == QChar::ParagraphSeparator;
}
} // namespace

QString plainText(const QString &text)
{
    const auto *const special = std::ranges::find_if_not(text, isOrdinary);
    if (special == text.cend()) {
        return text;
    }
    QString result = text.first(special - text.cbegin());
    result.reserve(text.size());
    for (qsizetype i = result.size(); i < text.size(); ++i) {
        const QChar character = text.at(i);
        const QChar next = i + 1 < text.size() ? text.at(i + 1) : QChar();
        if (isOrdinary(character)) {
            result += character;
        } else if (character.isHighSurrogate() && next.isLowSurrogate()) {
            result += character;
            result += next;
            ++i;
        } else if (isLineBreak(character)) {
            result += u'\n';
            if (character == u'\r' && next == u'\n') { // CR LF is one line break
                ++i;
            }
        } else {
            result += QChar(QChar::ReplacementCharacter);
        }
    }
    return result;
}
