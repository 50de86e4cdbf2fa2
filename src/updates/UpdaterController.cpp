// SPDX-License-Identifier: MIT
#include "updates/UpdaterController.h"

#include "core/AppState.h"
#include "platform/Process.h"
#include "updates/UpdateWindow.h"

#include <QCoreApplication>

UpdaterController::UpdaterController(AppState &(*state)())
    : m_state(state)
{
}

UpdaterController::~UpdaterController() = default;

void UpdaterController::checkForUpdates()
{
    const Desktop &desktop = m_state().desktop();
    if (!m_window) {
        desktop.appearance->windowsWillOpen();
        m_window = std::make_unique<UpdateWindow>(desktop);
        connect(m_window.get(), &UpdateWindow::restartRequested, this, &UpdaterController::restart);
    }
    const bool waitsForAnswer
        = m_window->isVisible() && desktop.updates->state().stage == UpdateState::Stage::available;
    if (!waitsForAnswer) {
        desktop.updates->check();
    }
    desktop.windows->present(*m_window);
}

void UpdaterController::restart()
{
    // A note that is being written is finished first.
    if (QObject *const prompt = m_state().openPrompt()) {
        connect(prompt, &QObject::destroyed, qApp, &Process::restart);
    } else {
        Process::restart();
    }
}
