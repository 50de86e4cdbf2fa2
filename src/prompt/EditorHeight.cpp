// SPDX-License-Identifier: MIT
#include "prompt/EditorHeight.h"

#include <algorithm>
#include <cmath>

namespace
{
constexpr double deadBand = 0.5;
} // namespace

double EditorHeight::forText(double textHeight)
{
    return std::clamp(std::ceil(textHeight) + chrome, minimum, maximum);
}

bool EditorHeight::differs(double measured, double current)
{
    return std::abs(measured - current) > deadBand;
}
