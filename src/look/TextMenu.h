// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>

class QLineEdit;
class QPlainTextEdit;

/// The context menu of a text, in the look of its window. The toolkit's own would ask the clipboard
/// what it holds before it shows itself, and wait for whoever owns it.
namespace TextMenu
{
/// Returns at once; @p place is on the screen.
void popUp(QPlainTextEdit &text, const QPoint &place);
void popUp(QLineEdit &text, const QPoint &place);
} // namespace TextMenu
