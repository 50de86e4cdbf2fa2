// SPDX-License-Identifier: MIT
#pragma once

#include "platform/generic/ToolkitAppearance.h"
#include "platform/linux/xsettings/XSettings.h"

/// The appearance according to the desktop's settings daemon: light or dark by the name of the
/// theme, and the font, which the application follows. Without a daemon, according to the toolkit.
class XSettingsAppearance final : public ToolkitAppearance
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(XSettingsAppearance)

public:
    XSettingsAppearance();

    [[nodiscard]] ColorScheme colorScheme() const override;
    void windowsWillOpen() override;

private:
    void adoptFont();

    XSettings m_settings;
};
