// SPDX-License-Identifier: MIT
#pragma once

/// The scale that the desktop wants of X11 programs, where the toolkit does not find it by itself.
namespace X11Scale
{
/// To be called before the application object is created. Leaves alone what the user has set.
void adopt();
} // namespace X11Scale
