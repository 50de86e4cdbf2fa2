// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include <functional>

class AppState;

/// Keeps a view current: calls its refresh on the next turn of the event loop after the state
/// announced a change, once however many changes there were.
class StateObserver final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(StateObserver)

public:
    /// @p refresh is called for as long as @p view, which owns this, lives.
    StateObserver(const AppState &state, QObject *view, std::function<void()> refresh);

private:
    void schedule();

    std::function<void()> m_refresh;
    bool m_isScheduled = false;
};
