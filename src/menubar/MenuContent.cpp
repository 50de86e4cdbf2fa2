// SPDX-License-Identifier: MIT
#include "menubar/MenuContent.h"

#include "core/AppDelegate.h"
#include "core/AppState.h"
#include "core/StateObserver.h"
#include "menubar/MenuText.h"

#include <QApplication>
#include <QKeyEvent>

namespace
{
void checkForUpdates()
{
    if (auto *const delegate = qobject_cast<AppDelegate *>(applicationDelegate())) {
        delegate->updaterController().checkForUpdates();
    }
}
} // namespace

MenuContent::MenuContent(AppState &state, Shown shown)
    : m_state(state)
    , m_shown(shown)
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
    const QKeySequence pressed(event->keyCombination());
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
    const QString text = statusText();
    m_status->setText(m_shown == Shown::ByUs ? MenuText::drawn(text) : MenuText::exported(text));
}

QString MenuContent::statusText() const
{
    return m_state.folderPath().isEmpty() ? tr("No folder selected") : m_state.statusLine();
}
