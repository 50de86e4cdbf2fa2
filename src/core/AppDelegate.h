// SPDX-License-Identifier: MIT
#pragma once

#include "core/UpdaterController.h"

#include <QObject>

/// Does what is to be done when the application has launched.
class AppDelegate final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(AppDelegate)

public:
    AppDelegate() = default;

    static void applicationDidFinishLaunching();

    [[nodiscard]] UpdaterController &updaterController() { return m_updaterController; }

private:
    UpdaterController m_updaterController;
};

/// The application object's delegate; null while it has none. Not owned by it.
[[nodiscard]] QObject *applicationDelegate();
void setApplicationDelegate(QObject *delegate);
