// SPDX-License-Identifier: MIT
#pragma once

#include <QPlainTextEdit>

/// Long text that can be read and copied, but not changed. It is always shown as plain text,
/// because it comes from outside the program.
class TextBox final : public QPlainTextEdit
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(TextBox)

public:
    /// @p name is the accessible name.
    TextBox(const QString &name, QWidget *parent);
};
