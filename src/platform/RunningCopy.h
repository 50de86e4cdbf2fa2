// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

/// Makes sure that only one copy of the program runs in a session, and receives requests from other
/// programs.
class RunningCopy : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(RunningCopy)

public:
    using QObject::QObject;

    /// Determines whether this is the first copy, and emits one of the next three signals.
    virtual void claim() = 0;

    /// Whether the user started this copy, for example from a launcher, and not the desktop at
    /// login.
    [[nodiscard]] virtual bool wasStartedByHand() const = 0;

signals:
    /// This is the only copy, or this cannot be determined.
    void becameFirst();
    /// Another copy is running and has been activated.
    void foundAnother();
    /// Another copy is running but does not respond.
    void foundUnresponsive();

    /// The program was started again, for example from a launcher.
    void activated();
    /// One of the launcher's actions was requested: "write-now", "settings", "check-for-updates" or
    /// "quit". Unknown actions are passed on unchanged.
    void actionRequested(const QString &action);
};
