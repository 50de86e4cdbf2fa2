// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include <memory>

class AppState;
class UpdateSession;
class UpdateWindow;
struct Desktop;

/// Looks for a newer version when the user asks for it, and shows what comes of it in one window.
class UpdaterController final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(UpdaterController)

public:
    /// Costs nothing and touches nothing: @p state is called at the first check.
    explicit UpdaterController(AppState &(*state)());
    ~UpdaterController() override;

    /// Starts a check of the user's own; while one is under way, or its outcome waits for an
    /// answer, only brings the window to the front.
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
