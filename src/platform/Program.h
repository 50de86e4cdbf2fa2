// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QtGlobal>

/// The running program as its system sees it.
class Program
{
public:
    Program() = default;
    virtual ~Program() = default;
    Q_DISABLE_COPY_MOVE(Program)

    /// The program's own file as it was when it was started: an upgrade replaces the file under the
    /// running program.
    [[nodiscard]] virtual QString path() const = 0;
    /// Whether there is something to start at path().
    [[nodiscard]] virtual bool canRestart() const = 0;
    /// Ends the program through the event loop and has it started again from path(). Does nothing
    /// where the program is ending already.
    virtual void restart() = 0;
};
