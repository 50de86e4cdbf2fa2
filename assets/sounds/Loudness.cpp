// SPDX-License-Identifier: MIT
#include "Loudness.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace Synthesis
{

namespace
{
// The window of momentary loudness, in seconds.
constexpr double windowSeconds = 0.4;

// The offset, in decibels, that makes a 997 Hz sine at full scale read -3.01 LUFS.
constexpr double loudnessOffset = -0.691;

// A second-order filter section with its feedback normalised.
struct Section {
    std::array<double, 3> input;
    std::array<double, 2> feedback;
};

// An analogue second-order section, described by its corner in hertz, its quality factor and
// its gains at high frequencies, around the corner and at low frequencies.
struct Analogue {
    double corner;
    double quality;
    double high;
    double middle;
    double low;
};

// The bilinear transform, so that the weighting is correct at this sample rate too.
Section digital(const Analogue &analogue)
{
    const double warped = std::tan(std::numbers::pi * analogue.corner / sampleRate);
    const double square = warped * warped;
    const double damped = warped / analogue.quality;
    const double scale = 1.0 + damped + square;
    const double low = analogue.low * square;
    const double middle = analogue.middle * damped;
    return {{(analogue.high + middle + low) / scale, 2.0 * (low - analogue.high) / scale,
             (analogue.high - middle + low) / scale},
            {2.0 * (square - 1.0) / scale, (1.0 - damped + square) / scale}};
}

// A shelf filter that models the head: about 4 dB above 2 kHz.
Section headShelf()
{
    const double high = std::pow(10.0, 3.999843853973347 / 20.0);
    const double middle = std::pow(high, 0.4996667741545416);
    return digital({1681.974450955533, 0.7071752369554196, high, middle, 1.0});
}

// A high-pass filter that models the ear's low sensitivity to very low tones. Its numerator is left
// at unit gain, as in the recommendation.
Section lowCut()
{
    Section section = digital({38.13547087602444, 0.5003270373238773, 1.0, 0.0, 0.0});
    section.input[0] = 1.0;
    section.input[1] = -2.0;
    section.input[2] = 1.0;
    return section;
}

Samples filtered(const Samples &samples, const Section &section)
{
    Samples result;
    result.reserve(samples.size());
    double first = 0.0;
    double second = 0.0;
    for (const double sample : samples) {
        const double output = section.input[0] * sample + first;
        first = section.input[1] * sample - section.feedback[0] * output + second;
        second = section.input[2] * sample - section.feedback[1] * output;
        result.push_back(output);
    }
    return result;
}

// The highest mean square of any 400 ms window, in decibels.
double loudestWindow(const Samples &samples)
{
    const std::size_t window = frameCount(windowSeconds);
    double sum = 0.0;
    double highest = 0.0;
    for (std::size_t frame = 0; frame < samples.size(); ++frame) {
        sum += samples[frame] * samples[frame];
        if (frame >= window) {
            sum -= samples[frame - window] * samples[frame - window];
        }
        highest = std::max(highest, sum);
    }
    return 10.0 * std::log10(highest / static_cast<double>(window));
}
} // namespace

double peakLevel(const Samples &samples)
{
    double highest = 0.0;
    for (const double sample : samples) {
        highest = std::max(highest, std::abs(sample));
    }
    return 20.0 * std::log10(highest);
}

double loudestLevel(const Samples &samples)
{
    return loudestWindow(samples);
}

double momentaryLoudness(const Samples &samples)
{
    return loudnessOffset + loudestWindow(filtered(filtered(samples, headShelf()), lowCut()));
}

} // namespace Synthesis
