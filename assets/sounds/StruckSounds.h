// SPDX-License-Identifier: MIT
#pragma once

#include "Synthesis.h"

namespace Synthesis
{

// Sounds of bodies that are struck once and ring out.
Samples bottle();
Samples glass();
Samples ping();
Samples pop();
Samples sosumi();
Samples submarine();
Samples tink();

} // namespace Synthesis
