// SPDX-License-Identifier: MIT
#pragma once

#include "Synthesis.h"

namespace Synthesis
{

// The highest absolute value, in decibels relative to full scale.
double peakLevel(const Samples &samples);

// The unweighted root mean square of the loudest 400 ms, in decibels relative to full scale.
double loudestLevel(const Samples &samples);

// The loudest 400 ms after K-weighting as in ITU-R BS.1770, ungated, in LUFS: the maximum
// momentary loudness. A sound shorter than the window is measured as if followed by silence.
double momentaryLoudness(const Samples &samples);

} // namespace Synthesis
