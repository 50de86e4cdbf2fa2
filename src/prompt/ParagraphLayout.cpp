// SPDX-License-Identifier: MIT
#include "prompt/ParagraphLayout.h"

#include <QScopeGuard>
#include <QTextBlock>
#include <QTextBoundaryFinder>
#include <QTextLayout>

#include <algorithm>

namespace
{
// In letters. For each line, the toolkit looks for the next place to break, up to the end of the
// word: a word of 4,000 letters takes about a millisecond, and one of 250,000 more than three
// seconds.
constexpr qsizetype giantWordLength = 4000;

/// @p text has no spaces. Scripts such as Chinese can be broken without any.
bool isUnbreakable(QStringView text)
{
    QTextBoundaryFinder places(QTextBoundaryFinder::Line, text.data(), text.size());
    qsizetype last = 0;
    for (qsizetype place = places.toNextBoundary(); place >= 0; place = places.toNextBoundary()) {
        if (place - last >= giantWordLength) {
            return true;
        }
        last = place;
    }
    return false;
}

bool hasGiantWord(const QTextBlock &block)
{
    if (block.length() <= giantWordLength) {
        return false;
    }
    const QString text = block.text();
    for (const auto *start = text.begin(); start != text.end();) {
        const auto *const end
            = std::find_if(start, text.end(), [](QChar c) { return c.isSpace(); });
        if (end - start >= giantWordLength && isUnbreakable({start, end})) {
            return true;
        }
        start = end == text.end() ? end : end + 1;
    }
    return false;
}

void alignRight(QTextLayout &layout)
{
    for (int i = 0; i < layout.lineCount(); ++i) {
        QTextLine line = layout.lineAt(i);
        const qreal room = line.width() - line.horizontalAdvance();
        line.setPosition({std::max(room, 0.0), line.y()});
    }
}
} // namespace

template <typename LayOut>
auto ParagraphLayout::withBreaksFor(const QTextBlock &block, const LayOut &layOut) const
{
    const auto before
        = exchangeWrapMode(hasGiantWord(block) ? QTextOption::WrapAnywhere
                                               : QTextOption::WrapAtWordBoundaryOrAnywhere);
    const auto restore = qScopeGuard([this, before] { exchangeWrapMode(before); });
    return layOut();
}

QRectF ParagraphLayout::blockBoundingRect(const QTextBlock &block) const
{
    if (!block.isValid()) {
        return {};
    }
    const bool isLaidOut = block.layout()->lineCount() > 0;
    const auto layOut
        = [this, &block] { return QPlainTextDocumentLayout::blockBoundingRect(block); };
    const QRectF rect = isLaidOut ? layOut() : withBreaksFor(block, layOut);
    if (block.textDirection() == Qt::RightToLeft) {
        alignRight(*block.layout());
    }
    return rect;
}

void ParagraphLayout::documentChanged(int from, int charsRemoved, int charsAdded)
{
    if (m_isChangingWrapMode) {
        return;
    }
    // If only one paragraph has changed, the toolkit lays it out immediately.
    withBreaksFor(document()->findBlock(from), [&] {
        QPlainTextDocumentLayout::documentChanged(from, charsRemoved, charsAdded);
    });
}

QTextOption::WrapMode ParagraphLayout::exchangeWrapMode(QTextOption::WrapMode mode) const
{
    QTextOption option = document()->defaultTextOption();
    const auto before = option.wrapMode();
    if (before != mode) {
        option.setWrapMode(mode);
        // The document would have every paragraph laid out again.
        m_isChangingWrapMode = true;
        document()->setDefaultTextOption(option);
        m_isChangingWrapMode = false;
    }
    return before;
}
