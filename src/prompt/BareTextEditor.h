// SPDX-License-Identifier: MIT
#pragma once

#include <QPlainTextEdit>

class Coordinator;
struct ContentHeight;
struct Look;

/// The writing surface: plain text on several lines, without border or scroll bars, which takes
/// keyboard focus once shown and measures the height of its own text.
class BareTextEditor final : public QPlainTextEdit
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(BareTextEditor)

public:
    /// The functions of @p contentHeight are copied and must be callable as long as the editor
    /// exists.
    BareTextEditor(const ContentHeight &contentHeight, QWidget *parent);

    /// The whole note, with lines separated by LF. Copies it, so must not be called on every
    /// keystroke: a note may be megabytes long.
    [[nodiscard]] QString text() const;
    /// Whether the note is empty or contains only white space.
    [[nodiscard]] bool isBlank() const;
    /// Replaces the whole note with plainText(@p text), unless that is already the note.
    void setText(const QString &text);
    /// Whether an input method is composing.
    [[nodiscard]] bool isComposing() const;
    /// Whether a composition has ended since the last key that the editor received. Calling this
    /// resets the answer. Needed because some input methods end a composition on Escape and also
    /// pass Escape on.
    [[nodiscard]] bool forgetJustComposed();
    /// Commits the text being composed to the note, where it stands.
    void endComposition();
    /// Reports the caret's position to the input method. Must be called after the window has moved.
    void reportCaretPlace();
    /// In the viewport's coordinates, and never beyond its edges.
    [[nodiscard]] QRect caretRect() const;
    [[nodiscard]] QVariant inputMethodQuery(Qt::InputMethodQuery property) const override;

    void setLook(const Look &look);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void inputMethodEvent(QInputMethodEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void changeEvent(QEvent *event) override;
    [[nodiscard]] bool canInsertFromMimeData(const QMimeData *source) const override;
    void insertFromMimeData(const QMimeData *source) override;
    [[nodiscard]] QMimeData *createMimeDataFromSelection() const override;

private:
    void takeFocusAndMeasure();
    [[nodiscard]] bool repeatsCommit(const QInputMethodEvent &event);

    QColor m_caretColor;
    bool m_hasJustComposed = false;
    bool m_isCommitting = false;
    /// What endComposition() has committed, until the input method composes or commits something
    /// else.
    QString m_committed;
    Coordinator *m_coordinator;
};
