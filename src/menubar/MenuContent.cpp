// SPDX-License-Identifier: MIT
#include "menubar/MenuContent.h"

#include "core/AppState.h"
#include "core/ApplicationDelegate.h"
#include "core/StateObserver.h"
#include "look/Look.h"

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

/// Lets Super act as Control, for keyboards that have ⌘ in its place.
Qt::KeyboardModifiers withCommandKey(Qt::KeyboardModifiers modifiers)
{
    return modifiers.testFlag(Qt::MetaModifier)
        ? (modifiers & ~Qt::MetaModifier) | Qt::ControlModifier
        : modifiers;
}
} // namespace

MenuContent::MenuContent(AppState &state)
    : Menu(*state.desktop().compositor)
    , m_state(state)
    , m_status(addAction(QString()))
{
    m_status->setEnabled(false);
    addSeparator();
    addAction(tr("Write now"), Qt::CTRL | Qt::Key_J, &state, &AppState::showPrompt);
    addAction(tr("Settings…"), Qt::CTRL | Qt::Key_Comma, &state, &AppState::showSettings);
    addSeparator();
    addAction(tr("Check for Updates…"), this, checkForUpdates);
    addSeparator();
    addAction(tr("Quit"), Qt::CTRL | Qt::Key_Q, qApp, &QCoreApplication::quit);
    new StateObserver(state, this, [this] { refresh(); });
    connect(this, &QMenu::aboutToShow, this, &MenuContent::refresh);
    connect(this, &QMenu::aboutToShow, this, &MenuContent::updateLook);
    connect(state.desktop().appearance.get(), &Appearance::changed, this, [this] {
        if (isVisible()) {
            updateLook();
        }
    });
    refresh();
}

void MenuContent::keyPressEvent(QKeyEvent *event)
{
    // The toolkit does not handle shortcuts while a menu is open.
    const QKeySequence pressed(
        QKeyCombination(withCommandKey(event->modifiers()), static_cast<Qt::Key>(event->key())));
    for (QAction *const action : actions()) {
        if (action->isEnabled() && action->shortcut() == pressed && !pressed.isEmpty()) {
            close();
            action->trigger();
            return;
        }
    }
    Menu::keyPressEvent(event);
}

void MenuContent::updateLook()
{
    setPalette(look(*m_state.desktop().appearance).palette());
}

void MenuContent::refresh()
{
    // A single "&" would mark a mnemonic instead of being shown.
    m_status->setText(statusText().replace(u'&', QStringLiteral("&&")));
}

QString MenuContent::statusText() const
{
    return m_state.folderPath().isEmpty() ? tr("No folder selected") : m_state.statusLine();
}
