// SPDX-License-Identifier: MIT
#include "look/TextMenu.h"

#include <QCoreApplication>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>

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

State stateOf(const QPlainTextEdit &text)
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

void removeSelected(QPlainTextEdit &text)
{
    text.textCursor().removeSelectedText();
}

void removeSelected(QLineEdit &text)
{
    text.del();
}

template <typename Text>
QMenu *menuOf(Text &text)
{
    auto *const menu = new QMenu(&text);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->setAttribute(Qt::WA_WindowPropagation); // of the palette, to a window of its own
    const State state = stateOf(text);
    const auto add = [menu](const QString &label, QKeySequence::StandardKey key, bool isEnabled,
                            auto &&action) {
        QAction *const item = menu->addAction(label, QKeySequence(key), action);
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
        add(Texts::tr("Paste"), QKeySequence::Paste, true, [&text] { text.paste(); });
        add(Texts::tr("Delete"), QKeySequence::UnknownKey, state.hasSelection,
            [&text] { removeSelected(text); });
    }
    menu->addSeparator();
    add(Texts::tr("Select All"), QKeySequence::SelectAll, !state.isEmpty,
        [&text] { text.selectAll(); });
    return menu;
}
} // namespace

void TextMenu::popUp(QPlainTextEdit &text, const QPoint &place)
{
    menuOf(text)->popup(place);
}

void TextMenu::popUp(QLineEdit &text, const QPoint &place)
{
    menuOf(text)->popup(place);
}
