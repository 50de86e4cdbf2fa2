// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include <memory>

class AppState;
class UpdateSession;
class UpdateWindow;
struct Desktop;

/// Checks for a newer version at the user's request and shows the result in a window.
class UpdaterController final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(UpdaterController)

public:
    /// @p state returns the program's state; it is not called before the first check.
    explicit UpdaterController(AppState &(*state)());
    ~UpdaterController() override;

    /// Starts a check. While one is in progress, or an available update waits for an answer, only
    /// brings the window to the front.
    void checkForUpdates();
    /// Null before the first check.
    [[nodiscard]] UpdateWindow *window() const { return m_window.get(); }

private:
    bool eventFilter(QObject *prompt, QEvent *event) override;
    void makeSession(const Desktop &desktop);
    void makeWindow(const Desktop &desktop);
    void showOutcome();
    void restart();

    AppState &(*m_state)();
    std::unique_ptr<UpdateSession> m_session;
    std::unique_ptr<UpdateWindow> m_window;
    bool m_isUnderWay = false;
};
