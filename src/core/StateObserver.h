// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include <functional>

class AppState;

/// Keeps a view up to date: calls its refresh function in the next iteration of the event loop
/// after a change of state. Several changes cause one call.
class StateObserver final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(StateObserver)

public:
    /// @p view owns this object; @p refresh may be called until @p view is destroyed.
    StateObserver(const AppState &state, QObject *view, std::function<void()> refresh);

private:
    void schedule();

    std::function<void()> m_refresh;
    bool m_isScheduled = false;
};
