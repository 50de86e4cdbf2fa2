// SPDX-License-Identifier: MIT
#include "settings/NumberField.h"

#include "look/BlinkingCaret.h"
#include "look/ControlStyle.h"
#include "look/Fonts.h"
#include "look/TextMenu.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QPainter>

namespace
{
constexpr int fieldWidth = 56;
// In addition to the margin that the toolkit leaves at each end of a text field.
constexpr int textMargin = 2;
} // namespace

NumberField::NumberField(std::function<void(const QString &)> committed, QWidget *parent)
    : QLineEdit(parent)
    , m_caret(new BlinkingCaret(*this))
    , m_committed(std::move(committed))
{
    setFont(systemFont(FontSizes::body));
    setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    setFixedSize(fieldWidth + 2 * ControlStyle::faceMargin, ControlStyle::outerHeight);
    setTextMargins(textMargin, 0, textMargin, 0);
    connect(this, &QLineEdit::returnPressed, this, &NumberField::commit);
    connect(this, &QLineEdit::cursorPositionChanged, m_caret, &BlinkingCaret::restart);
}

void NumberField::paintEvent(QPaintEvent *event)
{
    QLineEdit::paintEvent(event);
    // The toolkit's rectangle is wider than the caret, so that text beside it is painted anew too.
    constexpr int extraWidth = 5;
    const QRect around = cursorRect();
    QPainter painter(this);
    m_caret->draw(
        painter,
        {around.left() + extraWidth, around.top(), BlinkingCaret::width, around.height() - 1});
}

void NumberField::focusOutEvent(QFocusEvent *event)
{
    QLineEdit::focusOutEvent(event);
    if (event->reason() != Qt::PopupFocusReason) {
        commitIfEdited();
    }
}

void NumberField::hideEvent(QHideEvent *event)
{
    commitIfEdited();
    QLineEdit::hideEvent(event);
}

void NumberField::keyPressEvent(QKeyEvent *event)
{
    if (event->matches(QKeySequence::Paste)) {
        TextMenu::paste(*this);
    } else {
        QLineEdit::keyPressEvent(event);
    }
}

void NumberField::keyReleaseEvent(QKeyEvent *event)
{
    QLineEdit::keyReleaseEvent(event);
    // PanelWindow needs the release of Alt, to stop underlining mnemonics.
    event->ignore();
}

void NumberField::showNumber(const QString &text)
{
    m_shown = text;
    setText(text);
}

bool NumberField::isEdited() const
{
    return isModified() || text() != m_shown;
}

void NumberField::commitIfEdited()
{
    if (isEdited()) {
        commit();
    }
}

void NumberField::commit()
{
    setModified(false);
    m_committed(text());
}
