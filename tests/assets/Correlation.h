// SPDX-License-Identifier: MIT
#pragma once

#include "Synthesis.h"

#include <complex>
#include <vector>

namespace Synthesis
{

// The spectrum of a sound padded with silence to `size` frames, a power of two.
using Spectrum = std::vector<std::complex<double>>;
Spectrum spectrumOf(const Samples &samples, std::size_t size);

// The highest absolute cross-correlation of two sounds over all shifts, divided by the square root
// of the product of their energies: 1 for equal shapes, 0 for unrelated ones. Both spectra must be
// padded to at least the sum of the two lengths.
double highestCorrelation(const Spectrum &first, const Spectrum &second);

} // namespace Synthesis
