// SPDX-License-Identifier: MIT
#include "platform/linux/tray/ScreenPlace.h"

#include <QGuiApplication>
#include <QScreen>

std::optional<QPoint> logicalPlace(const QPoint &nativePlace)
{
    // The toolkit scales the size of a screen, but not its origin.
    const auto screens = QGuiApplication::screens();
    for (const QScreen *const screen : screens) {
        const QPoint origin = screen->geometry().topLeft();
        const qreal ratio = screen->devicePixelRatio();
        const QRect native(origin, screen->geometry().size() * ratio);
        if (native.contains(nativePlace)) {
            return origin + ((nativePlace - origin) / ratio);
        }
    }
    return std::nullopt;
}
