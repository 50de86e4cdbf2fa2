// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

/// What the menu asks of the application's delegate, which does more than this header knows.
class ApplicationDelegate : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(ApplicationDelegate)

public:
    using QObject::QObject;

    /// Looks for a newer version, because the user asked for it.
    virtual void checkForUpdates() = 0;
};

/// The application object's delegate, of whatever kind; null while it has none. Not owned by it.
[[nodiscard]] QObject *applicationDelegate();
void setApplicationDelegate(QObject *delegate);
