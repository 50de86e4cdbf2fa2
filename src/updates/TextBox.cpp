// SPDX-License-Identifier: MIT
#include "updates/TextBox.h"

#include "look/Accessible.h"
#include "look/Fonts.h"

#include <QMimeData>
#include <QTextBlock>
#include <QTextDocumentFragment>

#include <algorithm>
#include <memory>

namespace
{
constexpr int boxHeight = 132;
constexpr int boxMargin = 8;

/// What an item of a list begins with; empty if @p line is not one.
QStringView itemMark(QStringView line)
{
    const bool isItem = std::ranges::any_of(QStringView(u"•-*"), [&](QChar mark) {
        return line.startsWith(mark) && line.mid(1, 1) == u" ";
    });
    return isItem ? line.first(2) : QStringView();
}
} // namespace

TextBox::TextBox(const QString &name, QWidget *parent)
    : QTextEdit(parent)
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

void TextBox::showText(const QString &text)
{
    setPlainText(text);
    QTextCursor cursor(document());
    cursor.beginEditBlock(); // so that the text is laid out only once
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        const QString line = block.text();
        const QStringView mark = itemMark(line);
        if (!mark.isEmpty()) {
            cursor.setPosition(block.position());
            cursor.setBlockFormat(itemFormat(mark.toString()));
        }
    }
    cursor.endEditBlock();
}

QTextBlockFormat TextBox::itemFormat(const QString &mark) const
{
    const int indent = fontMetrics().horizontalAdvance(mark);
    QTextBlockFormat format;
    format.setLeftMargin(indent);
    format.setTextIndent(-indent);
    return format;
}

QMimeData *TextBox::createMimeDataFromSelection() const
{
    auto selected = std::make_unique<QMimeData>();
    selected->setText(textCursor().selection().toPlainText());
    return selected.release();
}
