// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

/// Looks for a newer version when the user asks for it.
class UpdaterController final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(UpdaterController)

public:
    UpdaterController() = default;

    void checkForUpdates() { emit checkRequested(); }

signals:
    /// The user wants to know whether there is a newer version.
    void checkRequested();
};
