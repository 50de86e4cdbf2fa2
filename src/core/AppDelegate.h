// SPDX-License-Identifier: MIT
#pragma once

#include "core/AppState.h"
#include "updates/UpdaterController.h"

#include <QObject>

/// Does what is to be done when the application has launched.
class AppDelegate final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(AppDelegate)

public:
    /// Makes the update controller before anything else; @p state is called only later.
    explicit AppDelegate(AppState &(*state)() = &AppState::shared);

    void applicationDidFinishLaunching();

    [[nodiscard]] UpdaterController &updaterController() { return m_updaterController; }

private:
    UpdaterController m_updaterController;
    AppState &(*m_state)();
};

/// The application object's delegate; null while it has none. Not owned by it.
[[nodiscard]] QObject *applicationDelegate();
void setApplicationDelegate(QObject *delegate);
