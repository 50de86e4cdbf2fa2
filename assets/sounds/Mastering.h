// SPDX-License-Identifier: MIT
#pragma once

#include "Synthesis.h"

namespace Synthesis
{

// The levels of every finished sound: its highest sample in decibels relative to full scale, and
// the mean of its momentary loudness and the unweighted level of its loudest 400 ms.
inline constexpr double targetPeak = -3.0;
inline constexpr double targetLevel = -15.6;

// Masters a sound: removes the constant part, saturates softly to reach the target level, fades
// both ends and sets the peak.
Samples mastered(const Samples &raw);

// The level that mastering adjusts, in decibels.
double perceivedLevel(const Samples &samples);

} // namespace Synthesis
