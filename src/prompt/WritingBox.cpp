// SPDX-License-Identifier: MIT
#include "prompt/WritingBox.h"

#include "look/Accessible.h"
#include "prompt/BareTextEditor.h"
#include "prompt/Coordinator.h"
#include "prompt/PromptView.h"

#include <QMouseEvent>

namespace
{
constexpr int boxPadding = 16;
/// Where a line starts inside the padding, as in the text views that this look is modelled on.
constexpr int linePadding = 5;
/// QPlainTextEdit scrolls by a line unless its viewport is a pixel higher than its text.
constexpr int editorSlack = 1;
} // namespace

WritingBox::WritingBox(const Look &look, std::function<void()> heightChanged, QWidget *parent)
    : QWidget(parent)
    , m_editor(
          new BareTextEditor({.read = [this] { return m_editorHeight; },
                              .write =
                                  [this, heightChanged = std::move(heightChanged)](double height) {
                                      m_editorHeight = height;
                                      layOutEditor();
                                      heightChanged();
                                  }},
                             this))
{
    Accessible::setRole(*this, QAccessible::Client);
    const QString question = tr("What would you like to note about this moment?");
    m_editor->setPlaceholderText(question);
    m_editor->setAccessibleName(question);
    setFocusProxy(m_editor);
    setCursor(Qt::IBeamCursor);
    setLook(look);
    layOutEditor();
}

void WritingBox::setLook(const Look &look)
{
    m_editor->setLook(look);
}

void WritingBox::layOutEditor()
{
    // Not from width(), because the box has no size yet when this is first called.
    constexpr int left = boxPadding + linePadding;
    m_editor->setGeometry(left, boxPadding, PromptView::width - 2 * (PromptView::margin + left),
                          static_cast<int>(m_editorHeight - EditorHeight::chrome) + editorSlack);
}

void WritingBox::mousePressEvent(QMouseEvent *event)
{
    m_editor->endComposition();
    // The padding is part of the writing area: a click there puts the caret at the nearest place.
    const QPoint inEditor = m_editor->viewport()->mapFrom(this, event->position().toPoint());
    m_editor->setTextCursor(m_editor->cursorForPosition(inEditor));
    m_editor->setFocus(Qt::MouseFocusReason);
}
