// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class AppState;
class SettingsView;

/// The one settings window: as large as its content, neither resizable nor minimisable. Closing it
/// hides it.
class SettingsWindow final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(SettingsWindow)

public:
    /// @p state must outlive the window.
    explicit SettingsWindow(AppState &state);

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;

private:
    void updateLook();

    AppState &m_state;
    SettingsView *m_view;
};
