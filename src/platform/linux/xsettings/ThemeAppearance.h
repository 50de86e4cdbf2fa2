// SPDX-License-Identifier: MIT
#pragma once

#include "platform/generic/ToolkitAppearance.h"
#include "platform/linux/xsettings/XSettings.h"

/// What the name of the desktop's theme says about its look; the toolkit's palette does where no
/// settings daemon names one.
class ThemeAppearance final : public ToolkitAppearance
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(ThemeAppearance)

public:
    ThemeAppearance();

    [[nodiscard]] ColorScheme colorScheme() const override;

private:
    XSettings m_settings;
};
