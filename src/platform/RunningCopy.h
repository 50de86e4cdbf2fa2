// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

/// Makes sure that only one copy of the program runs in a session, and lets other programs ask
/// things of that copy.
class RunningCopy : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(RunningCopy)

public:
    using QObject::QObject;

    /// Finds out whether this is the first copy; answers with one of the next three signals.
    virtual void claim() = 0;

signals:
    /// This is the only copy, or nobody can tell.
    void isFirst();
    /// Another copy runs and has been asked to come forward.
    void isAnother();
    /// Another copy runs, but does not answer.
    void isStuck();

    /// Somebody started the program again, from a launcher for example.
    void activated();
    /// Somebody asks for one of the actions that the launcher offers: "write-now", "settings",
    /// "check-for-updates" or "quit"; other words are passed on as they came.
    void actionRequested(const QString &action);
};
