// SPDX-License-Identifier: MIT
#include "platform/linux/xsettings/ThemeAppearance.h"

ThemeAppearance::ThemeAppearance()
{
    connect(&m_settings, &XSettings::changed, this, &Appearance::changed);
}

ColorScheme ThemeAppearance::colorScheme() const
{
    // Themes come in pairs such as "Adwaita" and "Adwaita-dark", "Mint-Y" and "Mint-Y-Dark-Aqua".
    const QString theme = m_settings.value("Net/ThemeName").toString();
    return theme.contains(u"dark", Qt::CaseInsensitive) ? ColorScheme::Dark
                                                        : ToolkitAppearance::colorScheme();
}
