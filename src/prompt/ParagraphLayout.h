// SPDX-License-Identifier: MIT
#pragma once

#include <QPlainTextDocumentLayout>

/// Lays out plain text like the toolkit, but puts each paragraph that is written from the right, as
/// its first strong letter tells, at the right edge.
class ParagraphLayout final : public QPlainTextDocumentLayout
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(ParagraphLayout)

public:
    using QPlainTextDocumentLayout::QPlainTextDocumentLayout;

    /// Asked for each paragraph before it is drawn, clicked or measured.
    [[nodiscard]] QRectF blockBoundingRect(const QTextBlock &block) const override;
};
