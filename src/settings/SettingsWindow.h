// SPDX-License-Identifier: MIT
#pragma once

#include "look/PanelWindow.h"

class AppState;
class SettingsView;
class TightScrollArea;

/// The settings window, of which there is only one. Closing it hides it.
class SettingsWindow final : public PanelWindow
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(SettingsWindow)

public:
    /// @p state must outlive the window.
    explicit SettingsWindow(AppState &state);

private:
    void updateLook();

    AppState &m_state;
    SettingsView *m_view;
    TightScrollArea *m_area;
};
