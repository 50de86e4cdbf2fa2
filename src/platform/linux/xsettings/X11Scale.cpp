// SPDX-License-Identifier: MIT
#include "platform/linux/xsettings/X11Scale.h"

#include "platform/linux/kernel/DesktopNames.h"
#include "platform/linux/xsettings/XSettings.h"

void X11Scale::adopt()
{
    // Xfce tells GTK programs a factor and leaves Xft/DPI, which the toolkit goes by, as it is. The
    // other desktops scale Xft/DPI and publish what it was before as Gdk/UnscaledDPI.
    const bool isSetByUser = qEnvironmentVariableIsSet("QT_SCALE_FACTOR")
        || qEnvironmentVariableIsSet("QT_SCREEN_SCALE_FACTORS");
    if (!isDesktop(u"XFCE") || isSetByUser) {
        return;
    }
    const auto settings = XSettings::readOnce();
    const int factor = settings.value("Gdk/WindowScalingFactor").toInt();
    if (factor > 1 && !settings.contains("Gdk/UnscaledDPI")) {
        qputenv("QT_SCALE_FACTOR", QByteArray::number(factor));
    }
}
