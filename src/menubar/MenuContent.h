// SPDX-License-Identifier: MIT
#pragma once

#include <QMenu>

class AppState;

/// What drops down from the tray icon: a line that says how often prompts come and where notes go,
/// and the commands.
class MenuContent final : public QMenu
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(MenuContent)

public:
    /// @p state must outlive the menu.
    explicit MenuContent(AppState &state);

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void refresh();
    [[nodiscard]] QString statusText() const;

    AppState &m_state;
    QAction *m_status;
};
