// SPDX-License-Identifier: MIT
#pragma once

#include <QTextEdit>

class BlinkingCaret;

/// Long text that can be read and copied, but not changed. It is always shown as plain text,
/// because it comes from outside the program; only the items of its lists are indented.
class TextBox final : public QTextEdit
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(TextBox)

public:
    /// @p name is the accessible name. The box has ControlStyle::overhang around its face.
    TextBox(const QString &name, QWidget *parent);

    /// The lines that follow the first of an item start below its words, not below its mark.
    void showText(const QString &text);

protected:
    void paintEvent(QPaintEvent *event) override;
    [[nodiscard]] QMimeData *createMimeDataFromSelection() const override;

private:
    BlinkingCaret *m_caret;

    [[nodiscard]] QTextBlockFormat itemFormat(const QString &mark) const;
};
