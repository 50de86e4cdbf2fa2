// SPDX-License-Identifier: MIT
#include "updates/TextBox.h"

#include "look/Accessible.h"
#include "look/BlinkingCaret.h"
#include "look/ControlStyle.h"
#include "look/Fonts.h"

#include <QMimeData>
#include <QPainter>
#include <QTextBlock>
#include <QTextDocumentFragment>

#include <algorithm>
#include <memory>

namespace
{
constexpr int boxHeight = 132; // without the room for the focus ring
constexpr int boxMargin = 8;
constexpr int itemSpacing = 4;

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
    , m_caret(new BlinkingCaret(*this))
{
    setAccessibleName(name);
    Accessible::hide(*viewport());
    setReadOnly(true);
    // Text can be selected with the keyboard as well as with the mouse.
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setTabChangesFocus(true);
    setCursorWidth(0);
    connect(this, &QTextEdit::cursorPositionChanged, m_caret, &BlinkingCaret::restart);
    setFrameShape(QFrame::StyledPanel);
    viewport()->setAutoFillBackground(false); // the style draws the face
    setFont(systemFont(FontSizes::subheadline));
    document()->setDocumentMargin(boxMargin);
    setFixedHeight(boxHeight + 2 * ControlStyle::faceMargin);
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
    format.setBottomMargin(itemSpacing);
    return format;
}

void TextBox::paintEvent(QPaintEvent *event)
{
    QTextEdit::paintEvent(event);
    QRect caret = cursorRect();
    caret.setWidth(BlinkingCaret::width);
    QPainter painter(viewport());
    m_caret->draw(painter, caret);
}

QMimeData *TextBox::createMimeDataFromSelection() const
{
    auto selected = std::make_unique<QMimeData>();
    selected->setText(textCursor().selection().toPlainText());
    return selected.release();
}
