// SPDX-License-Identifier: MIT
#pragma once

#include <QLineEdit>

#include <functional>

class BlinkingCaret;

/// A text field for a number. The text is committed by Return and, if it was edited, when the field
/// loses focus or is hidden.
class NumberField final : public QLineEdit
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(NumberField)

public:
    /// @p committed receives the text as it was typed, unchecked.
    NumberField(std::function<void(const QString &)> committed, QWidget *parent);

    /// Shows @p text and regards it as committed.
    void showNumber(const QString &text);
    /// Whether the text differs from the one last shown, whether the user typed it or assistive
    /// technology set it.
    [[nodiscard]] bool isEdited() const;
    /// Commits the text if it was edited.
    void commitIfEdited();

protected:
    void paintEvent(QPaintEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;

private:
    void commit();

    BlinkingCaret *m_caret;
    std::function<void(const QString &)> m_committed;
    QString m_shown;
};
