// SPDX-License-Identifier: MIT
#include "VoicedSounds.h"

#include <array>
#include <cmath>
#include <string_view>

namespace Synthesis
{

namespace
{
// How far, in turns, each harmonic lags behind the one below it; grows with its number. This turns
// the bare pulse of cosines into a rounder wave, like a bore or a string.
constexpr double dispersion = 0.010;

// Sums the harmonics 1 to `count`, each weighted by `weight(number)`.
template <typename Weight>
double harmonics(double turns, int count, Weight weight)
{
    double sum = 0.0;
    for (int number = 1; number <= count; ++number) {
        sum += weight(number) * cosineOfTurns(number * (turns - dispersion * number));
    }
    return sum;
}

// The start of a note, in seconds, and its pitch, in hertz.
struct Note {
    double start;
    double frequency;
};

// The gain of a bassoon's bore at a frequency in hertz: two broad resonances.
double boreGain(double frequency)
{
    return bell(frequency, 470.0, 190.0) + 0.35 * bell(frequency, 1150.0, 260.0) + 0.06;
}

// One syllable of a croak: its timing in seconds and its throat pulses in hertz.
struct Syllable {
    double start;
    double duration;
    double fromRate;
    double toRate;
};

void addSyllable(Samples &samples, const Syllable &syllable, Noise &noise)
{
    Phase phase;
    Resonator throat(620.0, 110.0);
    Resonator mouth(1480.0, 180.0);
    for (std::size_t frame = frameCount(syllable.start); frame < samples.size(); ++frame) {
        const double time = static_cast<double>(frame) / sampleRate - syllable.start;
        phase.advance(glide(time, syllable.duration, syllable.fromRate, syllable.toRate));
        const double shape = rise(time, 0.03) * rise(syllable.duration - time, 0.05);
        const double pulse = (phase.wrapped() ? 12.0 : 0.0) + 0.12 * noise.next();
        samples[frame] += throat.process(shape * pulse) + 0.8 * mouth.process(shape * pulse);
    }
}

// One plucked note through a filter that opens and closes again, like a mouth saying "wow".
void addPluck(Samples &samples, const Note &note, double timeConstant)
{
    Phase phase;
    for (std::size_t frame = frameCount(note.start); frame < samples.size(); ++frame) {
        const double time = static_cast<double>(frame) / sampleRate - note.start;
        const double centre = 260.0 + 1100.0 * rise(time, 0.05) * decay(time, 0.09);
        const double turns = phase.advance(note.frequency);
        const auto weight = [&](int number) {
            const double octaves = std::log2(number * note.frequency / centre);
            return (0.15 + bell(octaves, 0.0, 0.45)) / std::sqrt(number);
        };
        samples[frame]
            += rise(time, 0.003) * decay(time, timeConstant) * harmonics(turns, 24, weight);
    }
}

// One horn of the fanfare: it brightens as it swells and mellows as it dies away.
void addHorn(Samples &samples, const Note &note)
{
    Phase phase;
    for (std::size_t frame = frameCount(note.start); frame < samples.size(); ++frame) {
        const double time = static_cast<double>(frame) / sampleRate - note.start;
        const double swell = rise(time, 0.035) * decay(time, 0.42);
        const double slope = 0.35 + 0.38 * swell;
        const double turns = phase.advance(note.frequency * (1.0 - 0.01 * decay(time, 0.02)));
        const auto weight = [&](int number) { return std::pow(slope, number - 1); };
        samples[frame] += swell * harmonics(turns, 12, weight);
    }
}

// The keying of a line of dots and dashes at `time`, between 0 and 1. A dot lasts one unit, a
// dash three, and a gap of one unit follows each; every mark is struck and then fades a little.
double keying(std::string_view marks, double time, double unit)
{
    double start = 0.0;
    for (const char mark : marks) {
        const double length = (mark == '-' ? 3.0 : 1.0) * unit;
        const double since = time - start;
        if (since >= 0.0 && since < length) {
            const double held = 0.55 * decay(since, 0.012) + 0.45 * decay(since, 0.35);
            return rise(since, 0.004) * rise(length - since, 0.008) * held;
        }
        start += length + unit;
    }
    return 0.0;
}

// A cat breathes in and out while it purrs; the two halves differ in strength.
double breathing(double time)
{
    return bell(time, 0.34, 0.15) + 0.75 * bell(time, 0.92, 0.15);
}
} // namespace

// A single reed-like note, the G on the bottom line of the bass staff, that settles after a small
// scoop.
Samples basso()
{
    Phase phase;
    return render(0.95, [&](double time) {
        const double vibrato = 1.0 + 0.003 * rise(time, 0.4) * sineOfTurns(5.2 * time);
        const double pitch = 98.0 * vibrato * (1.0 - 0.03 * decay(time, 0.02));
        const double reed = harmonics(phase.advance(pitch), 24,
                                      [&](int number) { return boreGain(number * pitch); });
        return rise(time, 0.035) * rise(0.95 - time, 0.35) * decay(time, 0.6) * reed;
    });
}

// Breath across a pipe: noise shaped by the pipe's odd modes, with a trace of a tone inside it.
Samples blow()
{
    Noise noise(0xb10bULL);
    LowPass air(2200.0);
    std::array modes{Resonator(294.0, 26.0), Resonator(884.0, 60.0), Resonator(1475.0, 110.0)};
    return render(1.1, [&](double time) {
        const double wind = air.process(noise.next());
        const double column = 3.2 * modes[0].process(wind) + 1.6 * modes[1].process(wind)
            + 0.8 * modes[2].process(wind);
        const double tone = 0.10 * sineOfTurns(294.0 * time) * rise(time, 0.3);
        const double breath
            = rise(time, 0.16) * rise(1.1 - time, 0.6) * (0.32 + 0.68 * bell(time, 0.2, 0.12));
        return breath * (column + 0.16 * wind + tone);
    });
}

// "Rib-bit": two runs of throat pulses, the second one higher and hurrying upwards.
Samples frog()
{
    Samples samples(frameCount(0.62), 0.0);
    Noise noise(0xf406ULL);
    addSyllable(samples, {0.0, 0.20, 62.0, 74.0}, noise);
    addSyllable(samples, {0.25, 0.28, 84.0, 132.0}, noise);
    return samples;
}

// Three bass notes: the root, a clipped minor third and the octave.
Samples funk()
{
    Samples samples(frameCount(0.85), 0.0);
    addPluck(samples, {0.0, 110.0}, 0.09);
    addPluck(samples, {0.19, 130.8}, 0.05);
    addPluck(samples, {0.285, 220.0}, 0.17);
    return samples;
}

// Four horns enter one after the other, G C E G, and stay for the chord.
Samples hero()
{
    static constexpr auto notes
        = std::to_array<Note>({{0.0, 196.0}, {0.11, 261.6}, {0.22, 329.6}, {0.33, 392.0}});
    Samples samples(frameCount(1.2), 0.0);
    for (const Note &note : notes) {
        addHorn(samples, note);
    }
    return samples;
}

// The letter R, dot dash dot, which operators send to say "received", at twenty words a minute.
Samples morse()
{
    constexpr double unit = 0.06;
    return render(0.54, [&](double time) {
        const auto weight = [](int number) { return std::pow(0.5, number - 1); };
        return keying(".-.", time, unit) * harmonics(740.0 * time, 5, weight);
    });
}

// Soft pulses of the throat, 25 a second, each with a flutter of breath; the upper bands carry it
// on small speakers.
Samples purr()
{
    Noise noise(0x9a77ULL);
    Phase phase;
    std::array bands{Resonator(125.0, 60.0), Resonator(270.0, 110.0), Resonator(560.0, 260.0)};
    return render(1.3, [&](double time) {
        const double turns = phase.advance(25.0 + 1.5 * sineOfTurns(0.8 * time));
        const double flutter = std::pow(0.5 + 0.5 * cosineOfTurns(turns), 2.0);
        const double push = (0.08 + flutter) * noise.next() + (phase.wrapped() ? 6.0 : 0.0);
        const double chest = 1.1 * bands[0].process(push) + 1.1 * bands[1].process(push);
        return breathing(time) * rise(1.3 - time, 0.2) * (chest + 0.9 * bands[2].process(push));
    });
}

} // namespace Synthesis
