// SPDX-License-Identifier: MIT
#include "platform/Desktop.h"
#include "platform/generic/PosixFiles.h"
#include "platform/generic/PreferencesFile.h"
#include "platform/linux/bus/BusRunningCopy.h"
#include "platform/linux/kernel/BootTimeTimers.h"
#include "platform/linux/kernel/LinuxProgram.h"
#include "platform/linux/kernel/SystemClock.h"
#include "platform/linux/layershell/LayerShell.h"
#include "platform/linux/packagekit/PackageKit.h"
#include "platform/linux/portal/PortalAppearance.h"
#include "platform/linux/portal/PortalFolderChooser.h"
#include "platform/linux/portal/PortalSession.h"
#include "platform/linux/sound/CanberraSounds.h"
#include "platform/linux/tray/LinuxTray.h"
#include "platform/linux/x11/X11Compositor.h"
#include "platform/linux/x11/X11Windows.h"
#include "platform/linux/xsettings/X11Scale.h"
#include "platform/linux/xsettings/XSettingsAppearance.h"

void Desktop::prepare()
{
    LayerShell::adopt();
    LinuxProgram::prepare();
    BusRunningCopy::prepare();
    X11Scale::adopt();
}

Desktop Desktop::ofThisPlatform()
{
    Desktop desktop;
    desktop.program = std::make_unique<LinuxProgram>();
    desktop.runningCopy = std::make_unique<BusRunningCopy>();
    desktop.clock = std::make_unique<SystemClock>();
    desktop.timers = std::make_unique<BootTimeTimers>();
    desktop.files = std::make_unique<PosixFiles>();
    desktop.preferences = std::make_unique<PreferencesFile>(PreferencesFile::userPath());
    desktop.sounds = std::make_unique<CanberraSounds>();
    desktop.windows = LayerShell::makeWindows();
    if (!desktop.windows) {
        desktop.windows = std::make_unique<X11Windows>();
    }
    desktop.compositor = std::make_unique<X11Compositor>();
    desktop.appearance
        = std::make_unique<PortalAppearance>(std::make_unique<XSettingsAppearance>());
    desktop.tray = std::make_unique<LinuxTray>(*desktop.appearance);
    desktop.folderChooser = std::make_unique<PortalFolderChooser>(*desktop.windows);
    desktop.session = std::make_unique<PortalSession>();
    desktop.packageManager = std::make_unique<PackageKit>();
    return desktop;
}

int Desktop::end(int exitStatus, char **argv)
{
    return LinuxProgram::end(exitStatus, argv);
}
