// SPDX-License-Identifier: MIT
#include "prompt/BareTextEditor.h"

#include "look/Accessible.h"
#include "look/Fonts.h"
#include "look/Look.h"
#include "prompt/Coordinator.h"
#include "prompt/ParagraphLayout.h"
#include "prompt/PlainText.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QInputMethod>
#include <QInputMethodEvent>
#include <QMimeData>
#include <QPainter>
#include <QTextBlock>
#include <QTextDocumentFragment>

#include <algorithm>
#include <memory>
#include <utility>

namespace
{
constexpr int caretWidth = 1;

bool isClipboard(const QMimeData *source)
{
    const QClipboard &clipboard = *QGuiApplication::clipboard();
    return source == clipboard.mimeData(QClipboard::Clipboard)
        || source == clipboard.mimeData(QClipboard::Selection);
}

bool insertsLineBreak(const QKeyEvent &event)
{
    const bool isReturn = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
    return isReturn && (event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) == 0;
}
} // namespace

BareTextEditor::BareTextEditor(const ContentHeight &contentHeight, QWidget *parent)
    : QPlainTextEdit(parent)
{
    auto *const note = new QTextDocument(this);
    m_coordinator = new Coordinator(*note, contentHeight, this);
    note->setDocumentLayout(new ParagraphLayout(note));
    setDocument(note);
    Accessible::hide(*viewport());
    setFont(systemFont(FontSizes::note));
    setFrameShape(NoFrame);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    document()->setDocumentMargin(0);
    // The toolkit's caret has the colour of the text; paintEvent draws ours.
    setCursorWidth(0);
    connect(this, &QPlainTextEdit::textChanged, m_coordinator, &Coordinator::textDidChange);
    connect(this, &QPlainTextEdit::updateRequest, this, [this](const QRect &, int scrolled) {
        if (scrolled != 0) {
            reportCaretPlace();
        }
    });
    QMetaObject::invokeMethod(this, &BareTextEditor::takeFocusAndMeasure, Qt::QueuedConnection);
}

QString BareTextEditor::text() const
{
    // toPlainText would turn every no-break space into a plain one.
    QString text = document()->toRawText();
    text.replace(QChar::ParagraphSeparator, u'\n');
    return text.replace(QChar::LineSeparator, u'\n');
}

bool BareTextEditor::isBlank() const
{
    // Character by character: text() would copy the whole note, and this runs after every
    // keystroke.
    const int end = document()->characterCount();
    int place = 0;
    while (place < end && document()->characterAt(place).isSpace()) {
        ++place;
    }
    return place == end;
}

void BareTextEditor::setText(const QString &text)
{
    const QString plain = plainText(text);
    if (plain != this->text()) {
        setPlainText(plain);
    }
}

bool BareTextEditor::isComposing() const
{
    const QTextLayout *layout = textCursor().block().layout();
    return layout != nullptr && !layout->preeditAreaText().isEmpty();
}

void BareTextEditor::endComposition()
{
    if (!isComposing()) {
        return;
    }
    // Asks the input method to commit; if it does not, resets it; if that does not help either,
    // commits the text for it. The text is read first, before the input method can change it.
    QInputMethodEvent end;
    end.setCommitString(textCursor().block().layout()->preeditAreaText());
    m_committed.clear();
    m_isCommitting = true;
    QInputMethod &inputMethod = *QGuiApplication::inputMethod();
    inputMethod.commit();
    if (isComposing()) {
        // Some input method plug-ins ignore commit() but commit on reset().
        inputMethod.reset();
    }
    if (isComposing()) {
        QCoreApplication::sendEvent(this, &end);
    }
    m_isCommitting = false;
    m_hasJustComposed = false;
}

void BareTextEditor::setLook(const Look &look)
{
    QPalette palette = look.palette();
    palette.setColor(QPalette::Base, look.textBackground);
    setPalette(palette);
    m_caretColor = look.accent;
    viewport()->update();
}

void BareTextEditor::keyPressEvent(QKeyEvent *event)
{
    m_hasJustComposed = false;
    m_committed.clear();
    if (!insertsLineBreak(*event)) {
        QPlainTextEdit::keyPressEvent(event);
        return;
    }
    // The toolkit would insert U+2028 for Shift-Return.
    textCursor().insertBlock();
    ensureCursorVisible();
}

void BareTextEditor::keyReleaseEvent(QKeyEvent *event)
{
    m_hasJustComposed = false;
    QPlainTextEdit::keyReleaseEvent(event);
}

void BareTextEditor::mousePressEvent(QMouseEvent *event)
{
    m_hasJustComposed = false;
    // Otherwise the toolkit would move the composition to the new caret position, or commit it
    // twice.
    endComposition();
    QPlainTextEdit::mousePressEvent(event);
}

void BareTextEditor::inputMethodEvent(QInputMethodEvent *event)
{
    if (repeatsCommit(*event)) {
        event->accept();
        return;
    }
    const bool wasComposing = isComposing();
    const QString plain = plainText(event->commitString());
    if (plain != event->commitString()) {
        event->setCommitString(plain, event->replacementStart(), event->replacementLength());
    }
    QPlainTextEdit::inputMethodEvent(event);
    // Some input methods report the end of a composition twice.
    m_hasJustComposed = !isComposing() && (wasComposing || m_hasJustComposed);
}

bool BareTextEditor::repeatsCommit(const QInputMethodEvent &event)
{
    if (m_isCommitting) {
        m_committed += event.commitString();
        return false;
    }
    if (event.commitString().isEmpty() && event.preeditString().isEmpty()) {
        return false;
    }
    // After a reset, an input method may still commit the text that its plug-in has already
    // committed.
    const bool repeats = event.preeditString().isEmpty() && event.commitString() == m_committed;
    m_committed.clear();
    return repeats;
}

bool BareTextEditor::forgetJustComposed()
{
    return std::exchange(m_hasJustComposed, false);
}

QRect BareTextEditor::caretRect() const
{
    QRect caret = cursorRect();
    caret.setWidth(caretWidth);
    // At the start of a right-to-left line, the toolkit's caret is one pixel outside the viewport.
    caret.moveLeft(std::min(caret.x(), viewport()->width() - caretWidth));
    return caret;
}

QVariant BareTextEditor::inputMethodQuery(Qt::InputMethodQuery property) const
{
    QVariant answer = QPlainTextEdit::inputMethodQuery(property);
    if (property == Qt::ImCursorRectangle || property == Qt::ImAnchorRectangle) {
        // Input methods ignore a rectangle without a width.
        QRectF rect = answer.toRectF();
        rect.setWidth(caretWidth);
        answer = rect;
    }
    return answer;
}

void BareTextEditor::reportCaretPlace()
{
    if (hasFocus()) {
        QGuiApplication::inputMethod()->update(Qt::ImCursorRectangle | Qt::ImAnchorRectangle);
    }
}

void BareTextEditor::paintEvent(QPaintEvent *event)
{
    QPlainTextEdit::paintEvent(event);
    // The toolkit's cursor position is negative while the blinking caret is off.
    const bool isCaretOn = getPaintContext().cursorPosition >= 0 || (hasFocus() && isComposing());
    const QRect caret = caretRect();
    if (isCaretOn && event->rect().intersects(caret)) {
        QPainter(viewport()).fillRect(caret, m_caretColor);
    }
}

void BareTextEditor::changeEvent(QEvent *event)
{
    QPlainTextEdit::changeEvent(event);
    if (event->type() == QEvent::FontChange && isVisible()) {
        m_coordinator->updateHeight();
    }
}

bool BareTextEditor::canInsertFromMimeData(const QMimeData *source) const
{
    // Does not ask the clipboard's owner, which may be slow; if there is no text, pasting does
    // nothing.
    return isClipboard(source) || source->hasText() || source->hasHtml();
}

void BareTextEditor::insertFromMimeData(const QMimeData *source)
{
    // If the clipboard's owner does not answer this request, each further one would wait for the
    // full timeout as well.
    if (source->formats().isEmpty()) {
        return;
    }
    const QString text = source->hasText()
        ? source->text()
        : QTextDocumentFragment::fromHtml(source->html()).toPlainText();
    textCursor().insertText(plainText(text));
    ensureCursorVisible();
}

QMimeData *BareTextEditor::createMimeDataFromSelection() const
{
    auto selected = std::make_unique<QMimeData>();
    selected->setText(plainText(textCursor().selectedText()));
    return selected.release();
}

void BareTextEditor::takeFocusAndMeasure()
{
    if (window() != this) { // an editor without a parent is a window, which gets focus by itself
        setFocus();
    }
    m_coordinator->updateHeight();
}
