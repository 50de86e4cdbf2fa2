// SPDX-License-Identifier: MIT
#include "core/UpdaterController.h"

#include "core/AppState.h"

void UpdaterController::checkForUpdates()
{
    AppState::shared().desktop().alerts->warn(
        tr("Tovla can't be updated from here."),
        tr("This copy was not installed by your system's package manager. Update it the way it "
           "was installed."),
        nullptr);
}
