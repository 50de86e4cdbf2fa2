// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// What the process asks of its platform outside of any window.
namespace Process
{
/// Called first in main, before the application object is made: chooses the window system, and
/// makes sure that no signal ends the program in the middle of a write.
void prepare();

/// The program's own file as it was when prepare() was called. An upgrade replaces the file under
/// the running program, and then the system no longer tells.
[[nodiscard]] QString programPath();

/// Called once the event loop can be told to end: from now on a wish of the system to end the
/// program ends it through the event loop, and the end of a session does not make the next one
/// start it.
void endOnRequest();

/// Whether there is something to start at programPath().
[[nodiscard]] bool canRestart();

/// Ends the program through the event loop and has it started again, as the same process, from
/// programPath(). Does nothing where the program is ending already.
void restart();

/// Called last in main, when nothing of the application is left; returns what main returns, or does
/// not return when a restart was asked for.
[[nodiscard]] int end(int exitStatus, char **argv);
} // namespace Process
