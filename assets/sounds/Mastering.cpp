// SPDX-License-Identifier: MIT
#include "Mastering.h"

#include "Loudness.h"

#include <algorithm>
#include <cmath>

namespace Synthesis
{

namespace
{
// In seconds: the silence before the onset, and the fades, which prevent clicks at the ends.
constexpr double leadIn = 0.002;
constexpr double fadeIn = 0.001;
constexpr double fadeOut = 0.08;

// The range of the gain before saturation: the first leaves the sound practically unchanged, the
// second is a limit that no sound should reach.
constexpr double leastDrive = 0.01;
constexpr double mostDrive = 20.0;

// The saturation curve: linear for small values and never above 1. It uses only correctly rounded
// operations, so that it is the same on every machine.
double saturated(double value)
{
    return value / std::sqrt(1.0 + value * value);
}

void scaleToPeak(Samples &samples, double decibels)
{
    const double gain = std::pow(10.0, (decibels - peakLevel(samples)) / 20.0);
    for (double &sample : samples) {
        sample *= gain;
    }
}

Samples withoutConstantPart(const Samples &raw)
{
    LowPass drift(25.0);
    Samples result(frameCount(leadIn), 0.0);
    result.reserve(result.size() + raw.size());
    for (const double sample : raw) {
        result.push_back(sample - drift.process(sample));
    }
    return result;
}

void fadeEnds(Samples &samples)
{
    const std::size_t last = samples.size() - 1;
    for (std::size_t frame = 0; frame <= last; ++frame) {
        const double fromStart = static_cast<double>(frame) / sampleRate;
        const double fromEnd = static_cast<double>(last - frame) / sampleRate;
        samples[frame] *= rise(fromStart - leadIn, fadeIn) * rise(fromEnd, fadeOut);
    }
}

// `samples` must have its peak at 1.0.
Samples driven(Samples samples, double drive)
{
    for (double &sample : samples) {
        sample = saturated(drive * sample);
    }
    fadeEnds(samples);
    scaleToPeak(samples, targetPeak);
    return samples;
}
} // namespace

double perceivedLevel(const Samples &samples)
{
    return 0.5 * (momentaryLoudness(samples) + loudestLevel(samples));
}

Samples mastered(const Samples &raw)
{
    Samples samples = withoutConstantPart(raw);
    scaleToPeak(samples, 0.0);
    double low = leastDrive;
    double high = mostDrive;
    // With the peak fixed, more drive is always louder, so bisection finds the drive.
    for (int step = 0; step < 24; ++step) {
        const double middle = std::sqrt(low * high);
        (perceivedLevel(driven(samples, middle)) < targetLevel ? low : high) = middle;
    }
    return driven(samples, std::sqrt(low * high));
}

} // namespace Synthesis
