// SPDX-License-Identifier: MIT
#pragma once

#include <QPlainTextDocumentLayout>

/// Lays out plain text like the toolkit, but aligns each right-to-left paragraph (judged by its
/// first strongly directional character) to the right edge, and breaks the lines of a paragraph
/// with a giant word at any letter.
class ParagraphLayout final : public QPlainTextDocumentLayout
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(ParagraphLayout)

public:
    using QPlainTextDocumentLayout::QPlainTextDocumentLayout;

    /// Lays out the paragraph if its layout is missing, and aligns it: the toolkit calls this
    /// before it draws, hit-tests or measures one.
    [[nodiscard]] QRectF blockBoundingRect(const QTextBlock &block) const override;

protected:
    void documentChanged(int from, int charsRemoved, int charsAdded) override;

private:
    /// Calls @p layOut, within which the toolkit breaks lines as befits @p block.
    template <typename LayOut>
    auto withBreaksFor(const QTextBlock &block, const LayOut &layOut) const;
    /// Returns the mode that was set before.
    QTextOption::WrapMode exchangeWrapMode(QTextOption::WrapMode mode) const;

    mutable bool m_isChangingWrapMode = false;
};
