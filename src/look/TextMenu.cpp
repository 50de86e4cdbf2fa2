// SPDX-License-Identifier: MIT
#include "look/TextMenu.h"

#include "look/Menu.h"

#include <QClipboard>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QLineEdit>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QTextEdit>

namespace
{
class Texts
{
    Q_DECLARE_TR_FUNCTIONS(TextMenu)
};

struct State {
    bool canUndo;
    bool canRedo;
    bool hasSelection;
    bool isReadOnly;
    bool isEmpty;
};

template <typename Editor>
State stateOf(const Editor &text)
{
    const QTextDocument &document = *text.document();
    return {.canUndo = document.isUndoAvailable(),
            .canRedo = document.isRedoAvailable(),
            .hasSelection = text.textCursor().hasSelection(),
            .isReadOnly = text.isReadOnly(),
            .isEmpty = document.isEmpty()};
}

State stateOf(const QLineEdit &text)
{
    return {.canUndo = text.isUndoAvailable(),
            .canRedo = text.isRedoAvailable(),
            .hasSelection = text.hasSelectedText(),
            .isReadOnly = text.isReadOnly(),
            .isEmpty = text.text().isEmpty()};
}

template <typename Editor>
void removeSelected(Editor &text)
{
    text.textCursor().removeSelectedText();
}

void removeSelected(QLineEdit &text)
{
    text.del();
}

template <typename Editor>
void paste(Editor &text)
{
    text.paste();
}

using TextMenu::paste;

template <typename Text>
QMenu *menuOf(Text &text, const Compositor &compositor)
{
    auto *const menu = new Menu(compositor, &text);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->setAttribute(Qt::WA_WindowPropagation); // inherits the palette although it is a window
    const State state = stateOf(text);
    const auto add = [menu](const QString &label, QKeySequence::StandardKey key, bool isEnabled,
                            auto &&action) {
        QAction *const item = menu->addAction(label, QKeySequence(key), menu, action);
        item->setEnabled(isEnabled);
    };
    if (!state.isReadOnly) {
        add(Texts::tr("Undo"), QKeySequence::Undo, state.canUndo, [&text] { text.undo(); });
        add(Texts::tr("Redo"), QKeySequence::Redo, state.canRedo, [&text] { text.redo(); });
        menu->addSeparator();
        add(Texts::tr("Cut"), QKeySequence::Cut, state.hasSelection, [&text] { text.cut(); });
    }
    add(Texts::tr("Copy"), QKeySequence::Copy, state.hasSelection, [&text] { text.copy(); });
    if (!state.isReadOnly) {
        add(Texts::tr("Paste"), QKeySequence::Paste, true, [&text] { paste(text); });
        add(Texts::tr("Delete"), QKeySequence::UnknownKey, state.hasSelection,
            [&text] { removeSelected(text); });
    }
    menu->addSeparator();
    add(Texts::tr("Select All"), QKeySequence::SelectAll, !state.isEmpty,
        [&text] { text.selectAll(); });
    return menu;
}

template <typename Text>
void serveText(Text &text, const Compositor &compositor)
{
    text.setContextMenuPolicy(Qt::CustomContextMenu);
    QObject::connect(&text, &QWidget::customContextMenuRequested, &text,
                     [&text, &compositor](const QPoint &place) {
                         menuOf(text, compositor)->popup(text.mapToGlobal(place));
                     });
}
} // namespace

void TextMenu::paste(QLineEdit &text)
{
    // If the clipboard's owner does not answer this request, each further one would wait for the
    // full timeout as well.
    const QMimeData *const content = QGuiApplication::clipboard()->mimeData();
    if (content != nullptr && !content->formats().isEmpty()) {
        text.insert(content->text());
    }
}

void TextMenu::serve(QPlainTextEdit &text, const Compositor &compositor)
{
    serveText(text, compositor);
}

void TextMenu::serve(QTextEdit &text, const Compositor &compositor)
{
    serveText(text, compositor);
}

void TextMenu::serve(QLineEdit &text, const Compositor &compositor)
{
    serveText(text, compositor);
}
