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
#include "platform/Session.h"
#include "platform/Sounds.h"
#include "platform/Timers.h"
#include "platform/Tray.h"
#include "platform/Windows.h"

#include <memory>

/// The program's interfaces to the desktop, one member per capability. None is null, except that a
/// platform without suitable alerts of its own may leave out alerts; TovlaApp then installs
/// look/DrawnAlerts.
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
    std::unique_ptr<Session> session;
    std::unique_ptr<PackageManager> packageManager;

    /// Must be called first in main, before the application object is created.
    static void prepare();
    /// The desktop for the platform of this build. Defined in linux/LinuxDesktop.cpp and
    /// generic/GenericDesktop.cpp, which choose the implementation of each interface. Needs the
    /// application object. Capabilities defer their work to their first use where they can.
    [[nodiscard]] static Desktop ofThisPlatform();
    /// Must be called last in main, after the application object is gone. Returns the exit status
    /// for main, or does not return if a restart was requested.
    [[nodiscard]] static int end(int exitStatus, char **argv);
};
