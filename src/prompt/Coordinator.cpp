// SPDX-License-Identifier: MIT
#include "prompt/Coordinator.h"

#include "prompt/EditorHeight.h"

#include <QAbstractTextDocumentLayout>
#include <QTextBlock>
#include <QTextDocument>

#include <utility>

namespace
{
/// The height of the text, measured paragraph by paragraph and only until it exceeds what the box
/// can show, so that the cost does not grow with the note.
double textHeight(const QTextDocument &document)
{
    double height = 0;
    for (auto block = document.begin();
         block.isValid() && height < EditorHeight::maximum - EditorHeight::chrome;
         block = block.next()) {
        height += document.documentLayout()->blockBoundingRect(block).height();
    }
    return height;
}
} // namespace

Coordinator::Coordinator(const QTextDocument &note, ContentHeight contentHeight, QObject *parent)
    : QObject(parent)
    , m_note(note)
    , m_contentHeight(std::move(contentHeight))
{
}

void Coordinator::textDidChange()
{
    updateHeight();
}

void Coordinator::updateHeight()
{
    const double measured = EditorHeight::forText(textHeight(m_note));
    if (EditorHeight::differs(measured, m_contentHeight.read())) {
        m_contentHeight.write(measured);
    }
}
