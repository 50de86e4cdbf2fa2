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
    /// Creates only the update controller; @p state is not called yet.
    explicit AppDelegate(AppState &(*state)() = &AppState::shared);

    void applicationDidFinishLaunching();
    void checkForUpdates() override;

private:
    UpdaterController m_updaterController;
    AppState &(*m_state)();
};
