// SPDX-License-Identifier: MIT
#include "Correlation.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace Synthesis
{

namespace
{

// Reorders the values by the reversed bits of their positions, as the passes below expect.
void mirrorPositions(Spectrum &values)
{
    std::size_t mirrored = 0;
    for (std::size_t position = 1; position < values.size(); ++position) {
        std::size_t bit = values.size() / 2;
        for (; (mirrored & bit) != 0; bit /= 2) {
            mirrored ^= bit;
        }
        mirrored ^= bit;
        if (position < mirrored) {
            std::swap(values[position], values[mirrored]);
        }
    }
}

// One pass: joins pairs of transforms of half the `span` into transforms of `span` values.
void joinPairs(Spectrum &values, std::size_t span)
{
    const std::size_t half = span / 2;
    for (std::size_t offset = 0; offset < half; ++offset) {
        const double share = static_cast<double>(offset) / static_cast<double>(half);
        const auto twiddle = std::polar(1.0, -std::numbers::pi * share);
        for (std::size_t start = offset; start < values.size(); start += span) {
            const auto odd = twiddle * values[start + half];
            values[start + half] = values[start] - odd;
            values[start] += odd;
        }
    }
}

void transform(Spectrum &values)
{
    mirrorPositions(values);
    for (std::size_t span = 2; span <= values.size(); span *= 2) {
        joinPairs(values, span);
    }
}

// By Parseval's theorem, up to a factor that cancels out in the quotient below.
double energy(const Spectrum &spectrum)
{
    double sum = 0.0;
    for (const auto &value : spectrum) {
        sum += std::norm(value);
    }
    return sum;
}

} // namespace

Spectrum spectrumOf(const Samples &samples, std::size_t size)
{
    Spectrum spectrum(samples.begin(), samples.end());
    spectrum.resize(size);
    transform(spectrum);
    return spectrum;
}

double highestCorrelation(const Spectrum &first, const Spectrum &second)
{
    Spectrum product(first.size());
    std::transform(first.begin(), first.end(), second.begin(), product.begin(),
                   [](const auto &left, const auto &right) { return left * std::conj(right); });
    // Forward and inverse transforms differ only in the order of their values.
    transform(product);
    double highest = 0.0;
    for (const auto &value : product) {
        highest = std::max(highest, std::abs(value));
    }
    return highest / std::sqrt(energy(first) * energy(second));
}

} // namespace Synthesis
