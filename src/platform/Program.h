// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QtGlobal>

/// The running program as seen by the operating system.
class Program
{
public:
    Program() = default;
    virtual ~Program() = default;
    Q_DISABLE_COPY_MOVE(Program)

    /// The path of the program's file at startup. An upgrade may have replaced the file since.
    [[nodiscard]] virtual QString path() const = 0;
    /// Whether there is a program to start at path().
    [[nodiscard]] virtual bool canRestart() const = 0;
    /// Leaves the event loop and restarts the program from path(). Does nothing if the program is
    /// already ending.
    virtual void restart() = 0;
};
