// SPDX-License-Identifier: MIT
#include "platform/linux/layershell/LayerShell.h"

#include "platform/Windows.h"
#include "platform/linux/kernel/DesktopNames.h"

#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QLibrary>

namespace
{
/// The plug-in's functions.
using IsOffered = bool (*)();
using MakeWindows = Windows *(*)();

bool prefersWayland()
{
    if (!qEnvironmentVariableIsSet("WAYLAND_DISPLAY")) {
        return false;
    }
    const QByteArray chosen = qgetenv("QT_QPA_PLATFORM");
    if (!chosen.isEmpty()) {
        return chosen.startsWith("wayland");
    }
    const bool hasX11 = !qEnvironmentVariableIsEmpty("DISPLAY");
    return !hasX11 || !(isDesktop(u"GNOME") || isDesktop(u"KDE"));
}

QFunctionPointer inPlugin(const char *function)
{
    const QFileInfo program(QFile::symLinkTarget(QStringLiteral("/proc/self/exe")));
    // Without the plug-in or one of its libraries, the result is null.
    return QLibrary::resolve(program.path() + QStringLiteral("/" TOVLA_PLUGINS "/layershell.so"),
                             function);
}

bool isAdopted = false;
} // namespace

void LayerShell::adopt()
{
    if (!prefersWayland()) {
        return;
    }
    const auto isOffered = reinterpret_cast<IsOffered>(inPlugin("tovlaIsLayerShellOffered"));
    isAdopted = isOffered != nullptr && isOffered();
    if (isAdopted && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "wayland;xcb");
    }
}

std::unique_ptr<Windows> LayerShell::makeWindows()
{
    if (!isAdopted || !QGuiApplication::platformName().startsWith(QStringLiteral("wayland"))) {
        return nullptr;
    }
    const auto make = reinterpret_cast<MakeWindows>(inPlugin("tovlaMakeLayerShellWindows"));
    return std::unique_ptr<Windows>(make ? make() : nullptr);
}
