// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Program.h"

/// The program as a process of Linux: what it is from its first to its last step, and the signals
/// and sessions that end it.
class LinuxProgram final : public Program
{
public:
    /// Before the application object is made: chooses the window system, and makes sure that no
    /// signal ends the program in the middle of a write.
    static void prepare();
    /// When nothing of the application is left; does not return when a restart was asked for.
    [[nodiscard]] static int end(int exitStatus, char **argv);

    /// From now on a wish of the system to end the program ends it through the event loop, and the
    /// end of a session does not make the next one start it.
    LinuxProgram();

    [[nodiscard]] QString path() const override;
    [[nodiscard]] bool canRestart() const override;
    /// As the same process.
    void restart() override;
};
