// SPDX-License-Identifier: MIT
#pragma once

#include "Synthesis.h"

#include <span>
#include <string_view>

namespace Synthesis
{

// A sound by name, and the function that makes it before mastering.
struct Recipe {
    std::string_view name;
    Samples (*make)();
};

// All fourteen, in the order in which they are listed to people.
std::span<const Recipe> recipes();

// The finished sound: made, then mastered.
Samples finished(const Recipe &recipe);

} // namespace Synthesis
