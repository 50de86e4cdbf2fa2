// SPDX-License-Identifier: MIT
#include "core/AppState.h"
#include "look/Accessible.h"
#include "settings/SettingsWindow.h"

void AppState::showSettings()
{
    if (!m_settingsWindow) {
        m_desktop.appearance->windowsWillOpen();
        Accessible::quietly([this] { m_settingsWindow.reset(new SettingsWindow(*this)); });
    }
    m_desktop.windows->present(*m_settingsWindow);
}
