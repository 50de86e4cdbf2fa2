// SPDX-License-Identifier: MIT
#include "Synthesis.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace Synthesis
{

namespace
{
constexpr double fullTurn = 2.0 * std::numbers::pi;
}

std::size_t frameCount(double seconds)
{
    return static_cast<std::size_t>(std::lround(seconds * sampleRate));
}

double sineOfTurns(double turns)
{
    return std::sin(fullTurn * turns);
}

double cosineOfTurns(double turns)
{
    return std::cos(fullTurn * turns);
}

double rise(double time, double duration)
{
    if (time <= 0.0) {
        return 0.0;
    }
    return time >= duration ? 1.0 : 0.5 - 0.5 * cosineOfTurns(0.5 * time / duration);
}

double decay(double time, double timeConstant)
{
    return time < 0.0 ? 0.0 : std::exp(-time / timeConstant);
}

double bell(double value, double centre, double width)
{
    const double distance = (value - centre) / width;
    return std::exp(-0.5 * distance * distance);
}

double glide(double time, double duration, double from, double to)
{
    return from + (to - from) * std::clamp(time / duration, 0.0, 1.0);
}

Noise::Noise(std::uint64_t seed)
    : m_state(seed)
{
}

double Noise::next()
{
    // A 64-bit xorshift; the shifts are one of the triples with the full period.
    m_state ^= m_state << 13;
    m_state ^= m_state >> 7;
    m_state ^= m_state << 17;
    // The upper 53 bits fill the mantissa exactly.
    return static_cast<double>(m_state >> 11) * 0x1p-52 - 1.0;
}

double Phase::advance(double frequency)
{
    const double before = m_turns;
    m_wrapped = m_turns < frequency / sampleRate;
    m_turns += frequency / sampleRate;
    m_turns -= std::floor(m_turns);
    return before;
}

bool Phase::wrapped() const
{
    return m_wrapped;
}

Resonator::Resonator(double centre, double bandwidth)
{
    const double angle = fullTurn * centre / sampleRate;
    const double spread = std::tan(0.5 * fullTurn * bandwidth / sampleRate);
    m_gain = spread / (1.0 + spread);
    m_firstFeedback = 2.0 * std::cos(angle) / (1.0 + spread);
    m_secondFeedback = (spread - 1.0) / (1.0 + spread);
}

double Resonator::process(double input)
{
    const double output = m_gain * (input - m_inputs[1]) + m_firstFeedback * m_outputs[0]
        + m_secondFeedback * m_outputs[1];
    m_inputs[1] = m_inputs[0];
    m_inputs[0] = input;
    m_outputs[1] = m_outputs[0];
    m_outputs[0] = output;
    return output;
}

LowPass::LowPass(double corner)
    : m_share(1.0 - std::exp(-fullTurn * corner / sampleRate))
{
}

double LowPass::process(double input)
{
    m_output += m_share * (input - m_output);
    return m_output;
}

void addStrike(Samples &samples, const Strike &strike, std::span<const Partial> partials)
{
    for (std::size_t frame = frameCount(strike.start); frame < samples.size(); ++frame) {
        const double time = static_cast<double>(frame) / sampleRate - strike.start;
        double sum = 0.0;
        for (const Partial &partial : partials) {
            sum += partial.level * decay(time, partial.timeConstant)
                * sineOfTurns(strike.frequency * partial.ratio * time);
        }
        samples[frame] += strike.level * rise(time, strike.contact) * sum;
    }
}

void addContactNoise(Samples &samples, const Strike &strike, double timeConstant, Noise &noise)
{
    Resonator body(strike.frequency, 0.5 * strike.frequency);
    for (std::size_t frame = frameCount(strike.start); frame < samples.size(); ++frame) {
        const double time = static_cast<double>(frame) / sampleRate - strike.start;
        const double burst = rise(time, strike.contact) * decay(time, timeConstant);
        samples[frame] += strike.level * body.process(burst * noise.next());
    }
}

void addEcho(Samples &samples, double delay, double level, double corner)
{
    LowPass distance(corner);
    const Samples dry = samples;
    const std::size_t offset = frameCount(delay);
    for (std::size_t frame = offset; frame < samples.size(); ++frame) {
        samples[frame] += level * distance.process(dry[frame - offset]);
    }
}

} // namespace Synthesis
