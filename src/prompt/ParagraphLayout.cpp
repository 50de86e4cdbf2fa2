// SPDX-License-Identifier: MIT
#include "prompt/ParagraphLayout.h"

#include <QTextBlock>
#include <QTextLayout>

#include <algorithm>

namespace
{
void alignRight(QTextLayout &layout)
{
    for (int i = 0; i < layout.lineCount(); ++i) {
        QTextLine line = layout.lineAt(i);
        const qreal room = line.width() - line.horizontalAdvance();
        line.setPosition({std::max(room, 0.0), line.y()});
    }
}
} // namespace

QRectF ParagraphLayout::blockBoundingRect(const QTextBlock &block) const
{
    QRectF rect = QPlainTextDocumentLayout::blockBoundingRect(block);
    if (block.isValid() && block.textDirection() == Qt::RightToLeft) {
        alignRight(*block.layout());
    }
    return rect;
}
