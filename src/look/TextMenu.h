// SPDX-License-Identifier: MIT
#pragma once

class Compositor;
class QLineEdit;
class QPlainTextEdit;
class QTextEdit;

/// The context menu of a text field, in the look of its window. The toolkit's own menu would
/// request the clipboard's content before it opens, and wait for the clipboard's owner.
namespace TextMenu
{
/// Opens the menu whenever a context menu of @p text is requested. @p compositor must outlive the
/// text.
void serve(QPlainTextEdit &text, const Compositor &compositor);
void serve(QTextEdit &text, const Compositor &compositor);
void serve(QLineEdit &text, const Compositor &compositor);
/// Inserts the clipboard's text. If the clipboard's owner does not answer, waits for only one
/// timeout.
void paste(QLineEdit &text);
} // namespace TextMenu
