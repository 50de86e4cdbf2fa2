// SPDX-License-Identifier: MIT
#include "StruckSounds.h"

#include <array>

namespace Synthesis
{

// The cork comes out: the note leaps up as the neck opens, then the air in the bottle hums on.
Samples bottle()
{
    Phase phase;
    Noise noise(0x2b07713ULL);
    Resonator neck(392.0, 60.0);
    return render(0.75, [&](double time) {
        const double turns = phase.advance(glide(time, 0.045, 190.0, 392.0));
        const double hum = sineOfTurns(turns) + 0.22 * sineOfTurns(2.0 * turns)
            + 0.08 * sineOfTurns(3.0 * turns);
        const double plop = 1.2 * decay(time, 0.04);
        const double breath = neck.process(noise.next()) * decay(time, 0.16);
        return rise(time, 0.004) * (hum * (plop + 0.55 * decay(time, 0.19)) + 0.8 * breath);
    });
}

// No glass is perfectly round, so each mode of the bowl is a close pair, which causes the shimmer.
Samples glass()
{
    static constexpr auto partials = std::to_array<Partial>({
        {1.000, 0.70, 0.36},
        {1.004, 0.35, 0.36},
        {2.320, 0.42, 0.26},
        {2.329, 0.20, 0.26},
        {4.250, 0.22, 0.14},
        {4.262, 0.10, 0.14},
        {6.630, 0.10, 0.07},
        {9.380, 0.05, 0.03},
    });
    Samples samples(frameCount(1.1), 0.0);
    addStrike(samples, {0.0, 932.3, 1.0, 0.0008}, partials);
    return samples;
}

// A small metal bar, free at both ends: its modes follow the squares of 3, 5, 7 and 9.
Samples ping()
{
    static constexpr auto partials = std::to_array<Partial>({
        {1.000, 0.80, 0.24},
        {2.756, 0.50, 0.09},
        {5.404, 0.25, 0.03},
        {8.933, 0.08, 0.01},
    });
    Samples samples(frameCount(0.85), 0.0);
    addStrike(samples, {0.0, 1318.5, 1.0, 0.001}, partials);
    return samples;
}

// Lips or a bubble: a round tone that shoots upwards and disappears.
Samples pop()
{
    Phase phase;
    return render(0.50, [&](double time) {
        const double turns = phase.advance(glide(time, 0.04, 330.0, 830.0));
        const double tone = sineOfTurns(turns) + 0.10 * sineOfTurns(2.0 * turns);
        return rise(time, 0.002) * tone * (0.4 * decay(time, 0.02) + 0.6 * decay(time, 0.065));
    });
}

// Two rosewood bars, a fifth apart: their second mode is tuned a twelfth above the first.
Samples sosumi()
{
    static constexpr auto partials = std::to_array<Partial>({
        {1.00, 1.00, 0.12},
        {3.00, 0.70, 0.05},
        {6.10, 0.25, 0.02},
        {10.2, 0.04, 0.010},
    });
    Samples samples(frameCount(0.80), 0.0);
    Noise mallet(0x50505ULL);
    for (const Strike &strike :
         {Strike{0.0, 698.5, 0.85, 0.001}, Strike{0.14, 1046.5, 1.0, 0.001}}) {
        addStrike(samples, strike, partials);
        addContactNoise(samples, strike, 0.006, mallet);
    }
    return samples;
}

// A call into deep water that drops a little in pitch, and its distant echoes.
Samples submarine()
{
    Phase phase;
    Samples samples = render(1.5, [&](double time) {
        const double turns = phase.advance(glide(time, 0.30, 604.0, 587.3));
        const double tone = sineOfTurns(turns) + 0.20 * sineOfTurns(2.0 * turns)
            + 0.10 * sineOfTurns(3.0 * turns);
        return rise(time, 0.012) * tone * (0.55 * decay(time, 0.04) + 0.45 * decay(time, 0.18));
    });
    addEcho(samples, 0.80, 0.32, 1000.0);
    addEcho(samples, 0.40, 0.52, 1400.0);
    addEcho(samples, 0.037, 0.20, 1500.0);
    return samples;
}

// A fingernail on a little porcelain: high, and over almost at once.
Samples tink()
{
    static constexpr auto partials = std::to_array<Partial>({
        {1.00, 1.00, 0.085},
        {1.58, 0.20, 0.050},
        {2.74, 0.22, 0.025},
        {4.10, 0.12, 0.008},
    });
    Samples samples(frameCount(0.50), 0.0);
    addStrike(samples, {0.0, 1864.7, 1.0, 0.0005}, partials);
    return samples;
}

} // namespace Synthesis
