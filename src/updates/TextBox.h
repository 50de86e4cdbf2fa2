// SPDX-License-Identifier: MIT
#pragma once

#include <QPlainTextEdit>

/// Long text that can be read and copied, but not changed. What it shows comes from others, so it
/// is always plain.
class TextBox final : public QPlainTextEdit
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(TextBox)

public:
    /// @p name is what a screen reader calls it.
    TextBox(const QString &name, QWidget *parent);

protected:
    void contextMenuEvent(QContextMenuEvent *event) override;
};
