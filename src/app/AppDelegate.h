// SPDX-License-Identifier: MIT
#pragma once

#include "core/AppState.h"
#include "core/ApplicationDelegate.h"
#include "updates/UpdaterController.h"

/// Starts the program once the application has launched, and handles update checks.
class AppDelegate final : public ApplicationDelegate
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(AppDelegate)

public:
    /// @p state returns the program's state. A function, because the state may not exist yet: it is
    /// first called when the program has launched or an update check is requested.
    explicit AppDelegate(AppState &(*state)() = &AppState::shared);

    void applicationDidFinishLaunching();
    void checkForUpdates() override;

private:
    UpdaterController m_updaterController;
    AppState &(*m_state)();
};
