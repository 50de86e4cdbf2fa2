// SPDX-License-Identifier: MIT
#pragma once

#include <QPlainTextDocumentLayout>

/// Lays out plain text like the toolkit, but aligns each right-to-left paragraph (judged by its
/// first strongly directional character) to the right edge.
class ParagraphLayout final : public QPlainTextDocumentLayout
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(ParagraphLayout)

public:
    using QPlainTextDocumentLayout::QPlainTextDocumentLayout;

    /// Aligns the paragraph as a side effect: the toolkit calls this before it draws, hit-tests or
    /// measures one.
    [[nodiscard]] QRectF blockBoundingRect(const QTextBlock &block) const override;
};
