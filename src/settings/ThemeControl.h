// SPDX-License-Identifier: MIT
#pragma once

#include <QButtonGroup>
#include <QWidget>

class AppState;

/// Whether the windows look as the system does, or always light, or always dark.
class ThemeControl final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(ThemeControl)

public:
    /// @p state must outlive the control.
    explicit ThemeControl(AppState &state);

private:
    void refresh();

    AppState &m_state;
    QButtonGroup m_options;
};
