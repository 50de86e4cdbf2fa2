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
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        indentItem(block);
    }
}

void TextBox::indentItem(const QTextBlock &block) const
{
    const QString line = block.text();
    const int indent = fontMetrics().horizontalAdvance(itemMark(line).toString());
    QTextBlockFormat format;
    format.setLeftMargin(indent);
    format.setTextIndent(-indent);
    QTextCursor(block).setBlockFormat(format);
}

QMimeData *TextBox::createMimeDataFromSelection() const
{
    auto selected = std::make_unique<QMimeData>();
    selected->setText(textCursor().selection().toPlainText());
    return selected.release();
}
