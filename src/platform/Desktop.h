// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Alerts.h"
#include "platform/Appearance.h"
#include "platform/Clock.h"
#include "platform/Compositor.h"
#include "platform/Files.h"
#include "platform/FolderChooser.h"
#include "platform/PackageManager.h"
#include "platform/Preferences.h"
#include "platform/Program.h"
#include "platform/RunningCopy.h"
#include "platform/Sounds.h"
#include "platform/Timers.h"
#include "platform/Tray.h"
#include "platform/Windows.h"

#include <memory>

/// What the program asks of the desktop that it runs on, one member a capability; none is null.
struct Desktop {
    std::unique_ptr<Program> program;
    std::unique_ptr<RunningCopy> runningCopy;
    std::unique_ptr<Tray> tray;
    std::unique_ptr<Clock> clock;
    std::unique_ptr<Timers> timers;
    std::unique_ptr<Files> files;
    std::unique_ptr<Preferences> preferences;
    std::unique_ptr<Alerts> alerts;
    std::unique_ptr<Sounds> sounds;
    std::unique_ptr<Windows> windows;
    std::unique_ptr<Compositor> compositor;
    std::unique_ptr<Appearance> appearance;
    std::unique_ptr<FolderChooser> folderChooser;
    std::unique_ptr<PackageManager> packageManager;

    /// Called first in main, before the application object is made.
    static void prepare();
    /// The desktop of the platform that this was built for. Needs the application object; costs
    /// nothing that a capability does not need before its first use.
    [[nodiscard]] static Desktop ofThisPlatform();
    /// Called last in main, when nothing of the application is left; returns what main returns, or
    /// does not return when a restart was asked for.
    [[nodiscard]] static int end(int exitStatus, char **argv);
};
