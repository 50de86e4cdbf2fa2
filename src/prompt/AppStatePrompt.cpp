// SPDX-License-Identifier: MIT
#include "core/AppState.h"
#include "look/Accessible.h"
#include "prompt/PromptWindow.h"

#include <QPointer>

void AppState::showPrompt()
{
    if (openPrompt()) {
        return;
    }
    closePrompt();
    const QDateTime openedAt = m_desktop.clock->now();
    m_desktop.appearance->windowsWillOpen();
    const QPointer state = this;
    PromptCallbacks callbacks{.onSubmit =
                                  [state, openedAt](const QString &text) {
                                      if (state) {
                                          state->savePrompt(text, openedAt);
                                          state->closePrompt();
                                      }
                                  },
                              .onCancel =
                                  [state] {
                                      if (state) {
                                          state->closePrompt();
                                      }
                                  }};
    Accessible::quietly([&] {
        m_promptWindow.reset(new PromptWindow(openedAt, preferredColorScheme(m_theme), m_desktop,
                                              std::move(callbacks)));
    });
    playSelectedSound();
    m_desktop.windows->present(*m_promptWindow);
}

QWidget *AppState::openPrompt() const
{
    return m_promptWindow && m_promptWindow->isVisible() ? m_promptWindow.get() : nullptr;
}

void AppState::closePrompt()
{
    if (m_promptWindow) {
        m_promptWindow->close();
        m_promptWindow.reset();
    }
}

void AppState::playSelectedSound()
{
    if (m_soundPlayer) {
        m_soundPlayer->stop();
    }
    m_soundPlayer = m_desktop.sounds->soundNamed(m_soundName);
    if (m_soundPlayer) {
        m_soundPlayer->play();
    }
}
