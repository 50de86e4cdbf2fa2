// SPDX-License-Identifier: MIT
#include "platform/generic/ToolkitAppearance.h"

#include <QEvent>
#include <QGuiApplication>
#include <QPalette>

ColorScheme ToolkitAppearance::schemeOf(const QPalette &palette)
{
    constexpr int middleLightness = 128;
    return palette.window().color().lightness() < middleLightness ? ColorScheme::Dark
                                                                  : ColorScheme::Light;
}

ToolkitAppearance::ToolkitAppearance()
{
    qGuiApp->installEventFilter(this);
}

ColorScheme ToolkitAppearance::colorScheme() const
{
    return schemeOf(QGuiApplication::palette());
}

bool ToolkitAppearance::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == qGuiApp && event->type() == QEvent::ApplicationPaletteChange) {
        emit changed();
    }
    return false;
}
