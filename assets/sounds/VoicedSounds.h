// SPDX-License-Identifier: MIT
#pragma once

#include "Synthesis.h"

namespace Synthesis
{

// Sounds that are blown, bowed, plucked or sung: rich in harmonics or in breath.
Samples basso();
Samples blow();
Samples frog();
Samples funk();
Samples hero();
Samples morse();
Samples purr();

} // namespace Synthesis
