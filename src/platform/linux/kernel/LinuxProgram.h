// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Program.h"

/// The program as a Linux process: its startup and end, and the signals and sessions that end it.
class LinuxProgram final : public Program
{
public:
    /// Must be called before the application object is created. Chooses the window system, and
    /// makes sure that no signal ends the program in the middle of a write.
    static void prepare();
    /// Must be called after the application object is gone. Does not return if a restart was
    /// requested.
    [[nodiscard]] static int end(int exitStatus, char **argv);

    /// From now on, signals end the program through the event loop, and session managers do not
    /// restart it in the next session.
    LinuxProgram();

    [[nodiscard]] QString path() const override;
    [[nodiscard]] bool canRestart() const override;
    /// Restarts in the same process.
    void restart() override;
};
