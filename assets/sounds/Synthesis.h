// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#ifdef __FAST_MATH__
#error "Relaxed floating point would make the sounds differ from one build to the next."
#endif

namespace Synthesis
{

// Frames per second. Half of this, 16 kHz, is well above every partial used here, which avoids
// aliasing, while the files stay small.
inline constexpr int sampleRate = 32000;

// One channel; full scale is 1.0.
using Samples = std::vector<double>;

// The number of frames in a duration given in seconds.
std::size_t frameCount(double seconds);

// The value of sin(2 pi turns) and cos(2 pi turns): phases are counted in whole turns.
double sineOfTurns(double turns);
double cosineOfTurns(double turns);

// A raised-cosine rise from 0 at time 0 to 1 at `duration`; times and durations in seconds.
double rise(double time, double duration);

// An exponential decay starting at time 0: it falls by a factor e every `timeConstant` seconds.
double decay(double time, double timeConstant);

// A bell curve: 1 at `centre`, e^-0.5 one `width` away.
double bell(double value, double centre, double width);

// A straight line from `from` to `to` over `duration` seconds, constant outside it.
double glide(double time, double duration, double from, double to);

// White noise in [-1, 1) from a fixed seed, so that every build generates the same sound.
class Noise
{
public:
    explicit Noise(std::uint64_t seed);
    double next();

private:
    std::uint64_t m_state;
};

// Accumulates the phase, in turns, of an oscillator whose frequency may change at any frame.
class Phase
{
public:
    // Advances by one frame at `frequency` hertz and returns the phase before that.
    double advance(double frequency);
    // Whether the last advance began a new turn.
    bool wrapped() const;

private:
    double m_turns = 0.0;
    bool m_wrapped = true;
};

// A band-pass filter with unit gain at its centre; centre and bandwidth in hertz.
class Resonator
{
public:
    Resonator(double centre, double bandwidth);
    double process(double input);

private:
    double m_gain;
    double m_firstFeedback;
    double m_secondFeedback;
    double m_inputs[2] = {0.0, 0.0};
    double m_outputs[2] = {0.0, 0.0};
};

// A gentle low-pass filter of 6 dB per octave; corner in hertz.
class LowPass
{
public:
    explicit LowPass(double corner);
    double process(double input);

private:
    double m_share;
    double m_output = 0.0;
};

// One mode of a struck body: its frequency relative to the lowest mode, its level, and the time
// constant of its decay in seconds.
struct Partial {
    double ratio;
    double level;
    double timeConstant;
};

// One strike: its time in seconds, the lowest mode in hertz, its level, and the duration of the
// contact in seconds, which softens the onset.
struct Strike {
    double start;
    double frequency;
    double level;
    double contact;
};

// Adds the ringing of a body with these partials, struck once.
void addStrike(Samples &samples, const Strike &strike, std::span<const Partial> partials);

// Adds a short burst of noise around `strike.frequency`, the sound of the contact itself.
void addContactNoise(Samples &samples, const Strike &strike, double timeConstant, Noise &noise);

// Adds a copy of the sound so far, `delay` seconds later, duller and scaled by `level`.
void addEcho(Samples &samples, double delay, double level, double corner);

// Calls `function` with the time in seconds of every frame, in order, and collects the results.
template <typename Function>
Samples render(double duration, Function function)
{
    Samples samples(frameCount(duration));
    for (std::size_t frame = 0; frame < samples.size(); ++frame) {
        samples[frame] = function(static_cast<double>(frame) / sampleRate);
    }
    return samples;
}

} // namespace Synthesis
