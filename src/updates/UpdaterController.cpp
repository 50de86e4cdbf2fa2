// SPDX-License-Identifier: MIT
#include "updates/UpdaterController.h"

#include "core/AppState.h"
#include "look/Accessible.h"
#include "updates/UpdateSession.h"
#include "updates/UpdateWindow.h"

#include <QCoreApplication>
#include <QEvent>
#include <QWidget>

#include <utility>

UpdaterController::UpdaterController(AppState &(*state)())
    : m_state(state)
{
}

UpdaterController::~UpdaterController() = default;

void UpdaterController::checkForUpdates()
{
    const Desktop &desktop = m_state().desktop();
    if (!m_session) {
        makeSession(desktop);
    }
    const bool waitsForAnswer = m_window && m_window->isVisible()
        && m_session->state().stage == UpdateState::Stage::available;
    if (!waitsForAnswer) {
        m_session->check();
    }
    if (!m_window) {
        makeWindow(desktop);
    }
    desktop.windows->present(*m_window);
}

void UpdaterController::makeSession(const Desktop &desktop)
{
    m_session = std::make_unique<UpdateSession>(*desktop.packageManager, desktop.program->path(),
                                                QCoreApplication::applicationVersion());
}

void UpdaterController::makeWindow(const Desktop &desktop)
{
    desktop.appearance->windowsWillOpen();
    Accessible::quietly([&] { m_window = std::make_unique<UpdateWindow>(desktop, *m_session); });
    m_isUnderWay = m_session->state().isUnderWay();
    connect(m_window.get(), &UpdateWindow::restartRequested, this, &UpdaterController::restart);
    connect(m_session.get(), &UpdateSession::changed, this, &UpdaterController::showOutcome);
}

void UpdaterController::showOutcome()
{
    const UpdateState &state = m_session->state();
    const bool hasEnded = std::exchange(m_isUnderWay, state.isUnderWay()) && !m_isUnderWay;
    // The window was closed during the operation, so the user has not seen how it ended.
    if (hasEnded && state.stage != UpdateState::Stage::idle && !m_window->isVisible()) {
        m_state().desktop().windows->present(*m_window);
    }
}

void UpdaterController::restart()
{
    if (!m_state().desktop().program->canRestart()) {
        m_state().desktop().alerts->warn(
            tr("Update Installed"), tr("The new version will be available next time."), nullptr);
    } else if (QWidget *const prompt = m_state().openPrompt()) {
        // Waits until the open note is saved or discarded.
        prompt->installEventFilter(this);
    } else {
        m_state().desktop().program->restart();
    }
}

bool UpdaterController::eventFilter(QObject *, QEvent *event)
{
    if (event->type() == QEvent::Hide && !event->spontaneous()) {
        // Checks again, because another prompt may have opened by then.
        QMetaObject::invokeMethod(this, &UpdaterController::restart, Qt::QueuedConnection);
    }
    return false;
}
