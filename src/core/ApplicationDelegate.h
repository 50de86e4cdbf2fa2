// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

/// The part of the application's delegate that the menu uses.
class ApplicationDelegate : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(ApplicationDelegate)

public:
    using QObject::QObject;

    /// Looks for a newer version, at the user's request.
    virtual void checkForUpdates() = 0;
};

/// The application object's delegate, or null. The application does not own it.
[[nodiscard]] QObject *applicationDelegate();
void setApplicationDelegate(QObject *delegate);
