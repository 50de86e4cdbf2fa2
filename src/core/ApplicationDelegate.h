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

/// The application's delegate, or null if none has been set or it has been deleted. It is a
/// property of the application object, which does not own it, so that the menu gets by without the
/// app room. Any QObject may be set; the menu ignores one that is not an ApplicationDelegate.
[[nodiscard]] QObject *applicationDelegate();
void setApplicationDelegate(QObject *delegate);
