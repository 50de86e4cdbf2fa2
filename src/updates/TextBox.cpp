// SPDX-License-Identifier: MIT
#include "updates/TextBox.h"

#include "look/Accessible.h"
#include "look/Fonts.h"

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
    // Text can be selected with the keyboard as well as with the mouse.
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setTabChangesFocus(true);
    setFrameShape(QFrame::NoFrame);
    setFont(systemFont(FontSizes::subheadline));
    document()->setDocumentMargin(boxMargin);
    setFixedHeight(boxHeight);
}
