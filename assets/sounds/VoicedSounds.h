// SPDX-License-Identifier: MIT
#pragma once

#include "Synthesis.h"

namespace Synthesis
{

// Blown, bowed, plucked or sung sounds, rich in harmonics or breath.
Samples basso();
Samples blow();
Samples frog();
Samples funk();
Samples hero();
Samples morse();
Samples purr();

} // namespace Synthesis
