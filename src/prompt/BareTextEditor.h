// SPDX-License-Identifier: MIT
#pragma once

#include <QPlainTextEdit>

class Coordinator;
struct ContentHeight;
struct Look;

/// The writing surface: plain text on several lines, without border or scroll bars, which takes the
/// keyboard once it is shown and measures the height of its own text.
class BareTextEditor final : public QPlainTextEdit
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(BareTextEditor)

public:
    BareTextEditor(const ContentHeight &contentHeight, QWidget *parent);

    /// The note as it stands, lines divided by LF. Copies it: a note may be megabytes long, and
    /// typing must not cost more for that.
    [[nodiscard]] QString text() const;
    /// There is nothing in the note but white space.
    [[nodiscard]] bool isBlank() const;
    /// Replaces the whole note, unless it is the same already.
    void setText(const QString &text);
    /// An input method is in the middle of composing something.
    [[nodiscard]] bool isComposing() const;
    /// A composition has ended and no key that the editor saw has come since; asking forgets it.
    /// Some engines end it themselves at a key that they then pass on.
    [[nodiscard]] bool forgetJustComposed();
    /// Makes what is being composed part of the note, at its place.
    void endComposition();
    /// Tells the input method where the caret is now; to be called when the window has moved.
    void tellCaretPlace();
    /// In the viewport's coordinates, and never beyond its edge.
    [[nodiscard]] QRect caretRect() const;
    [[nodiscard]] QVariant inputMethodQuery(Qt::InputMethodQuery property) const override;

    void setLook(const Look &look);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void inputMethodEvent(QInputMethodEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
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
