// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

/// Stands in for libcanberra: plays nothing, and writes down what it is told. As the library does,
/// it ends the program if a context is used that does not exist.
namespace CanberraDouble
{
/// Forgets everything that was told, and does all that is asked from now on.
void reset();
/// No context can be created: there is no sound system.
void refuseContexts();
/// The next @p times sounds fail, as after the end of the sound server.
void failToPlay(int times);

/// What was told so far: "create", "play PATH", "cancel" and "destroy".
[[nodiscard]] QStringList calls();
/// The properties of the last sound that was to be played.
[[nodiscard]] QStringList properties();
} // namespace CanberraDouble
