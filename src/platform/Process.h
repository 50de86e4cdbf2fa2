// SPDX-License-Identifier: MIT
#pragma once

/// What the process asks of its platform outside of any window.
namespace Process
{
/// Called first in main, before the application object is made: chooses the window system, and
/// makes sure that no signal ends the program in the middle of a write.
void prepare();

/// Called once the event loop can be told to end: from now on a wish of the system to end the
/// program ends it through the event loop, and the end of a session does not make the next one
/// start it.
void endOnRequest();
} // namespace Process
