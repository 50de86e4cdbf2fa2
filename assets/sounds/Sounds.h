// SPDX-License-Identifier: MIT
#pragma once

#include "Synthesis.h"

#include <span>
#include <string_view>

namespace Synthesis
{

// The name of a sound, and the function that generates it before mastering.
struct Recipe {
    std::string_view name;
    Samples (*make)();
};

// All fourteen sounds, in the order in which they are listed.
std::span<const Recipe> recipes();

// Generates and masters the sound.
Samples finished(const Recipe &recipe);

} // namespace Synthesis
