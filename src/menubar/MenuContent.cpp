// SPDX-License-Identifier: MIT
#include "menubar/MenuContent.h"

#include "core/AppState.h"
#include "core/ApplicationDelegate.h"
#include "core/StateObserver.h"

#include <QApplication>
#include <QKeyEvent>

namespace
{
void checkForUpdates()
{
    if (auto *const delegate = qobject_cast<ApplicationDelegate *>(applicationDelegate())) {
        delegate->checkForUpdates();
    }
}

/// Super stands for Control, for keyboards that have a ⌘ key there.
Qt::KeyboardModifiers withCommandKey(Qt::KeyboardModifiers modifiers)
{
    return modifiers.testFlag(Qt::MetaModifier)
        ? (modifiers & ~Qt::MetaModifier) | Qt::ControlModifier
        : modifiers;
}
} // namespace

MenuContent::MenuContent(AppState &state)
    : m_state(state)
    , m_status(addAction(QString()))
{
    m_status->setEnabled(false);
    addSeparator();
    addAction(tr("Write now"), Qt::CTRL | Qt::Key_J, &state, &AppState::showPrompt);
    addAction(tr("Settings…"), Qt::CTRL | Qt::Key_Comma, &state, &AppState::showSettings);
    addSeparator();
    addAction(tr("Check for Updates…"), checkForUpdates);
    addSeparator();
    addAction(tr("Quit"), Qt::CTRL | Qt::Key_Q, qApp, &QCoreApplication::quit);
    new StateObserver(state, this, [this] { refresh(); });
    connect(this, &QMenu::aboutToShow, this, &MenuContent::refresh);
    refresh();
}

void MenuContent::keyPressEvent(QKeyEvent *event)
{
    // The toolkit runs no shortcuts while a menu is open.
    const QKeySequence pressed(
        QKeyCombination(withCommandKey(event->modifiers()), static_cast<Qt::Key>(event->key())));
    for (QAction *const action : actions()) {
        if (action->isEnabled() && action->shortcut() == pressed && !pressed.isEmpty()) {
            close();
            action->trigger();
            return;
        }
    }
    QMenu::keyPressEvent(event);
}

void MenuContent::refresh()
{
    // Every character is shown, none taken for the mark of a mnemonic.
    m_status->setText(statusText().replace(u'&', QStringLiteral("&&")));
}

QString MenuContent::statusText() const
{
    return m_state.folderPath().isEmpty() ? tr("No folder selected") : m_state.statusLine();
}
