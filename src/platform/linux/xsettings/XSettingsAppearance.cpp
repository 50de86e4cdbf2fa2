// SPDX-License-Identifier: MIT
#include "platform/linux/xsettings/XSettingsAppearance.h"

#include "platform/linux/kernel/DesktopNames.h"

#include <QApplication>
#include <QFontDatabase>

#include <algorithm>

namespace
{
/// The family in a description such as "Cantarell Bold 11": the longest beginning that is one.
/// Empty if none is installed (docs.gtk.org, pango.FontDescription.from_string).
QString familyIn(QString description)
{
    while (!description.isEmpty() && !QFontDatabase::hasFamily(description)) {
        description.truncate(std::max(description.lastIndexOf(u' '), qsizetype{0}));
        if (description.endsWith(u',')) {
            description.chop(1);
        }
    }
    return description;
}

/// The toolkit reads the font of desktops that are made with it from their own settings.
bool knowsFontFromDaemon()
{
    return !isDesktop(u"KDE") && !isDesktop(u"LXQt");
}
} // namespace

XSettingsAppearance::XSettingsAppearance()
{
    connect(&m_settings, &XSettings::changed, this, &Appearance::changed);
}

ColorScheme XSettingsAppearance::colorScheme() const
{
    // Themes come in pairs such as "Adwaita" and "Adwaita-dark", "Mint-Y" and "Mint-Y-Dark-Aqua".
    const QString theme = m_settings.value("Net/ThemeName").toString();
    return theme.contains(u"dark", Qt::CaseInsensitive) ? ColorScheme::Dark
                                                        : ToolkitAppearance::colorScheme();
}

void XSettingsAppearance::windowsWillOpen()
{
    // Not before, because this loads the fonts. The toolkit asks for the font only at the start,
    // when the daemon may not run yet.
    adoptFont();
    connect(&m_settings, &XSettings::changed, this, &XSettingsAppearance::adoptFont,
            Qt::UniqueConnection);
}

void XSettingsAppearance::adoptFont()
{
    const QString family = familyIn(m_settings.value("Gtk/FontName").toString());
    if (knowsFontFromDaemon() && !family.isEmpty() && family != QApplication::font().family()) {
        QFont font = QApplication::font();
        font.setFamily(family);
        QApplication::setFont(font);
    }
}
