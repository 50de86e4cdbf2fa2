// SPDX-License-Identifier: MIT
#pragma once

#include "core/AppState.h"
#include "support/TestDesktop.h"

/// An AppState on a test desktop, with access to private members.
class AppStateForTests final
{
public:
    explicit AppStateForTests(TestDesktop &desktop)
        : m_state(desktop.capabilities())
    {
    }

    AppState *operator->() { return &m_state; }
    AppState &operator*() { return m_state; }

    void savePrompt(const QString &text, const QDateTime &openedAt)
    {
        m_state.savePrompt(text, openedAt);
    }
    [[nodiscard]] QWidget *promptWindow() const { return m_state.m_promptWindow.get(); }
    [[nodiscard]] QWidget *settingsWindow() const { return m_state.m_settingsWindow.get(); }

private:
    AppState m_state;
};
