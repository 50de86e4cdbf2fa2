// SPDX-License-Identifier: MIT
#include "core/StateObserver.h"

#include "core/AppState.h"

StateObserver::StateObserver(const AppState &state, QObject *view, std::function<void()> refresh)
    : QObject(view)
    , m_refresh(std::move(refresh))
{
    connect(&state, &AppState::willChange, this, &StateObserver::schedule);
}

void StateObserver::schedule()
{
    if (m_isScheduled) {
        return;
    }
    m_isScheduled = true;
    QMetaObject::invokeMethod(
        this,
        [this] {
            m_isScheduled = false;
            m_refresh();
        },
        Qt::QueuedConnection);
}
