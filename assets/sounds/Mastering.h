// SPDX-License-Identifier: MIT
#pragma once

#include "Synthesis.h"

namespace Synthesis
{

// Where every sound ends up: its highest sample in decibels relative to full scale, and the mean
// of its momentary loudness and its plain level over the loudest 400 ms.
inline constexpr double targetPeak = -3.0;
inline constexpr double targetLevel = -15.6;

// The step all sounds share: removes the constant part, saturates softly by as much as the target
// level asks for, fades both ends and sets the peak.
Samples mastered(const Samples &raw);

// The level mastering aims at, in decibels.
double perceivedLevel(const Samples &samples);

} // namespace Synthesis
