// SPDX-License-Identifier: MIT
#include "updates/TextBox.h"

#include "look/Accessible.h"
#include "look/Fonts.h"
#include "look/TextMenu.h"

#include <QContextMenuEvent>

namespace
{
constexpr int boxHeight = 132;
constexpr int boxMargin = 8;
} // namespace

TextBox::TextBox(const QString &name, QWidget *parent)
    : QPlainTextEdit(parent)
{
    setAccessibleName(name);
    Accessible::hide(*viewport());
    setReadOnly(true);
    // With the keyboard too.
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setTabChangesFocus(true);
    setFrameShape(QFrame::NoFrame);
    setFont(systemFont(FontSizes::subheadline));
    document()->setDocumentMargin(boxMargin);
    setFixedHeight(boxHeight);
}

void TextBox::contextMenuEvent(QContextMenuEvent *event)
{
    TextMenu::popUp(*this, event->globalPos());
}
