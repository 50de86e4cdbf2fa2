// SPDX-License-Identifier: MIT
#pragma once

#include "look/Menu.h"

class AppState;

/// The menu of the tray icon: a line with the interval and the journal folder, and the commands.
class MenuContent final : public Menu
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(MenuContent)

public:
    /// @p state must outlive the menu.
    explicit MenuContent(AppState &state);

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void updateLook();
    void refresh();
    [[nodiscard]] QString statusText() const;

    AppState &m_state;
    QAction *m_status;
};
