// SPDX-License-Identifier: MIT
#include "platform/Desktop.h"
#include "platform/Process.h"
#include "platform/linux/kernel/BootTimeTimers.h"
#include "platform/linux/sound/CanberraSounds.h"
#include "platform/generic/FileDialogFolderChooser.h"
#include "platform/generic/MessageBoxAlerts.h"
#include "platform/linux/packagekit/PackageKitUpdates.h"
#include "platform/linux/bus/PortalAppearance.h"
#include "platform/generic/PreferencesFile.h"
#include "platform/linux/kernel/SystemClock.h"
#include "platform/linux/x11/X11Compositor.h"
#include "platform/linux/x11/X11Windows.h"

#include <QCoreApplication>

Desktop Desktop::ofThisPlatform()
{
    Desktop desktop;
    desktop.clock = std::make_unique<SystemClock>();
    desktop.timers = std::make_unique<BootTimeTimers>();
    desktop.preferences = std::make_unique<PreferencesFile>(PreferencesFile::userPath());
    desktop.sounds = std::make_unique<CanberraSounds>();
    desktop.windows = std::make_unique<X11Windows>();
    desktop.alerts = std::make_unique<MessageBoxAlerts>(*desktop.windows);
    desktop.compositor = std::make_unique<X11Compositor>();
    desktop.appearance = std::make_unique<PortalAppearance>();
    desktop.folderChooser = std::make_unique<FileDialogFolderChooser>(*desktop.windows);
    desktop.updates = std::make_unique<PackageKitUpdates>(Process::programPath(),
                                                          QCoreApplication::applicationVersion());
    return desktop;
}
