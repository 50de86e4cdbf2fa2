// SPDX-License-Identifier: MIT
#include "platform/Desktop.h"
#include "platform/generic/FileDialogFolderChooser.h"
#include "platform/generic/NoCompositor.h"
#include "platform/generic/NoPackageManager.h"
#include "platform/generic/NoSession.h"
#include "platform/generic/NoSounds.h"
#include "platform/generic/OnlyCopy.h"
#include "platform/generic/PlainClock.h"
#include "platform/generic/PlainProgram.h"
#include "platform/generic/PlainWindows.h"
#include "platform/generic/PosixFiles.h"
#include "platform/generic/PreferencesFile.h"
#include "platform/generic/ToolkitAppearance.h"
#include "platform/generic/ToolkitTimers.h"
#include "platform/generic/ToolkitTray.h"

void Desktop::prepare() { }

Desktop Desktop::ofThisPlatform()
{
    Desktop desktop;
    desktop.program = std::make_unique<PlainProgram>();
    desktop.runningCopy = std::make_unique<OnlyCopy>();
    desktop.clock = std::make_unique<PlainClock>();
    desktop.timers = std::make_unique<ToolkitTimers>();
    desktop.files = std::make_unique<PosixFiles>();
    desktop.preferences = std::make_unique<PreferencesFile>(PreferencesFile::userPath());
    desktop.sounds = std::make_unique<NoSounds>();
    desktop.windows = std::make_unique<PlainWindows>();
    desktop.compositor = std::make_unique<NoCompositor>();
    desktop.appearance = std::make_unique<ToolkitAppearance>();
    desktop.tray = std::make_unique<ToolkitTray>(*desktop.appearance);
    desktop.folderChooser = std::make_unique<FileDialogFolderChooser>(*desktop.windows);
    desktop.session = std::make_unique<NoSession>();
    desktop.packageManager = std::make_unique<NoPackageManager>();
    return desktop;
}

int Desktop::end(int exitStatus, char **)
{
    return exitStatus;
}
