// SPDX-License-Identifier: MIT
#pragma once

#include "core/AppState.h"
#include "core/ApplicationDelegate.h"
#include "updates/UpdaterController.h"

/// Does what is to be done when the application has launched.
class AppDelegate final : public ApplicationDelegate
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(AppDelegate)

public:
    /// Makes the update controller before anything else; @p state is called only later.
    explicit AppDelegate(AppState &(*state)() = &AppState::shared);

    void applicationDidFinishLaunching();
    void checkForUpdates() override;

private:
    UpdaterController m_updaterController;
    AppState &(*m_state)();
};
