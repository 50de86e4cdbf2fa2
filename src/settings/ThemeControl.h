// SPDX-License-Identifier: MIT
#pragma once

#include "core/ThemePreference.h"

#include <QButtonGroup>
#include <QWidget>

/// The choice between the system's colour scheme, always light and always dark.
class ThemeControl final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(ThemeControl)

public:
    ThemeControl();

    void showTheme(ThemePreference theme);

signals:
    void themeChosen(ThemePreference theme);

private:
    ThemePreference m_theme = ThemePreference::system;
    QButtonGroup m_options;
};
