// SPDX-License-Identifier: MIT
#include "Sounds.h"

#include "Correlation.h"
#include "Loudness.h"
#include "Wave.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <iomanip>
#include <iostream>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace
{

using namespace Sounds;

constexpr std::size_t headerSize = 44;

// What is checked is what is stored: the samples are read back from the bytes of the file.
struct Sound {
    std::string name;
    Bytes file;
    Samples samples;
};

int failureCount = 0;

void verify(bool holds, const std::string &message)
{
    if (!holds) {
        ++failureCount;
        std::cerr << "FAIL: " << message << '\n';
    }
}

std::string text(double value)
{
    std::ostringstream stream;
    stream << std::fixed << std::setprecision(3) << value;
    return stream.str();
}

std::uint32_t numberAt(const Bytes &bytes, std::size_t position, std::size_t byteCount)
{
    std::uint32_t value = 0;
    for (std::size_t index = byteCount; index-- > 0;) {
        value = value << 8 | bytes.at(position + index);
    }
    return value;
}

std::string textAt(const Bytes &bytes, std::size_t position)
{
    return {bytes.begin() + static_cast<std::ptrdiff_t>(position),
            bytes.begin() + static_cast<std::ptrdiff_t>(position + 4)};
}

Samples storedSamples(const Bytes &file)
{
    Samples samples;
    for (std::size_t position = headerSize; position + 1 < file.size(); position += 2) {
        const auto frame = static_cast<std::int16_t>(numberAt(file, position, 2));
        samples.push_back(frame / 32768.0);
    }
    return samples;
}

std::vector<Sound> generatedSounds()
{
    std::vector<Sound> sounds;
    for (const Recipe &recipe : recipes()) {
        Bytes file = waveFile(quantised(finished(recipe)));
        Samples samples = storedSamples(file);
        sounds.push_back({std::string(recipe.name), std::move(file), std::move(samples)});
    }
    return sounds;
}

double duration(const Sound &sound)
{
    return static_cast<double>(sound.samples.size()) / sampleRate;
}

std::size_t totalBytes(const std::vector<Sound> &sounds)
{
    std::size_t total = 0;
    for (const Sound &sound : sounds) {
        total += sound.file.size();
    }
    return total;
}

// The difference between the highest and the lowest measure of all sounds, in decibels.
double spread(const std::vector<Sound> &sounds, double (*measure)(const Samples &))
{
    std::vector<double> values;
    for (const Sound &sound : sounds) {
        values.push_back(measure(sound.samples));
    }
    const auto [lowest, highest] = std::minmax_element(values.begin(), values.end());
    return *highest - *lowest;
}

void meterReadsReferenceTone()
{
    const Samples tone = render(1.0, [](double time) { return sineOfTurns(997.0 * time); });
    const double loudness = momentaryLoudness(tone);
    verify(std::abs(loudness + 3.01) < 0.05, "a full-scale 997 Hz sine reads " + text(loudness));
}

void namesAreComplete(const std::vector<Sound> &sounds)
{
    static constexpr std::array<std::string_view, 14> names{
        "Basso", "Blow", "Bottle", "Frog", "Funk",   "Glass",     "Hero",
        "Morse", "Ping", "Pop",    "Purr", "Sosumi", "Submarine", "Tink",
    };
    const bool equal = std::equal(sounds.begin(), sounds.end(), names.begin(), names.end(),
                                  [](const Sound &sound, auto name) { return sound.name == name; });
    verify(equal, "the names or their order differ from the expected fourteen");
}

void formatIsMonoSixteenBit(const std::vector<Sound> &sounds)
{
    for (const auto &[name, file, samples] : sounds) {
        verify(textAt(file, 0) == "RIFF" && textAt(file, 8) == "WAVE", name + ": not a wave file");
        verify(textAt(file, 12) == "fmt " && textAt(file, 36) == "data", name + ": wrong chunks");
        verify(numberAt(file, 20, 2) == 1, name + ": not linear samples");
        verify(numberAt(file, 22, 2) == 1, name + ": not one channel");
        verify(numberAt(file, 24, 4) == sampleRate, name + ": wrong sample rate");
        verify(numberAt(file, 34, 2) == 16, name + ": not 16 bits");
        verify(numberAt(file, 4, 4) == file.size() - 8, name + ": wrong size of the file");
        verify(numberAt(file, 40, 4) == file.size() - headerSize, name + ": wrong size of data");
    }
}

void lengthsAreShort(const std::vector<Sound> &sounds)
{
    for (const Sound &sound : sounds) {
        const double seconds = duration(sound);
        verify(seconds >= 0.3 && seconds <= 1.6, sound.name + " lasts " + text(seconds) + " s");
    }
}

void filesAreSmall(const std::vector<Sound> &sounds)
{
    const std::size_t total = totalBytes(sounds);
    verify(total < 900'000, "all files together take " + std::to_string(total) + " bytes");
}

void peaksAreEqual(const std::vector<Sound> &sounds)
{
    for (const Sound &sound : sounds) {
        const double peak = peakLevel(sound.samples);
        verify(std::abs(peak + 3.0) <= 0.1, sound.name + " peaks at " + text(peak) + " dBFS");
    }
}

void loudnessIsAlike(const std::vector<Sound> &sounds)
{
    const double range = spread(sounds, momentaryLoudness);
    verify(range <= 2.0, "momentary loudness spreads over " + text(range) + " dB");
}

void levelsAreAlike(const std::vector<Sound> &sounds)
{
    const double range = spread(sounds, loudestLevel);
    verify(range <= 2.0, "the level of the loudest 400 ms spreads over " + text(range) + " dB");
}

void endsAreSilent(const std::vector<Sound> &sounds)
{
    const auto edge = static_cast<std::ptrdiff_t>(frameCount(0.002));
    for (const auto &[name, file, samples] : sounds) {
        const Samples first(samples.begin(), samples.begin() + edge);
        const Samples last(samples.end() - edge, samples.end());
        const double limit = 20.0 * std::log10(0.02);
        verify(samples.front() == 0.0 && samples.back() == 0.0, name + ": an end is not zero");
        verify(peakLevel(first) < limit, name + ": the first 2 ms are too loud");
        verify(peakLevel(last) < limit, name + ": the last 2 ms are too loud");
    }
}

void meansAreZero(const std::vector<Sound> &sounds)
{
    for (const auto &[name, file, samples] : sounds) {
        double sum = 0.0;
        for (const double sample : samples) {
            sum += sample;
        }
        const double mean = sum / static_cast<double>(samples.size());
        verify(std::abs(mean) < 0.005, name + " has a constant part of " + text(mean));
    }
}

// Hard clipping leaves runs of frames that all sit at the peak.
void peaksAreRound(const std::vector<Sound> &sounds)
{
    for (const auto &[name, file, samples] : sounds) {
        const double nearPeak = 0.999 * std::pow(10.0, peakLevel(samples) / 20.0);
        int run = 0;
        int longest = 0;
        for (const double sample : samples) {
            run = std::abs(sample) >= nearPeak ? run + 1 : 0;
            longest = std::max(longest, run);
        }
        verify(longest <= 8, name + " has " + std::to_string(longest) + " frames in a row at peak");
    }
}

double soundsAreDistinct(const std::vector<Sound> &sounds)
{
    constexpr std::size_t paddedSize = 131072; // More than two sounds of 1.6 s in a row.
    double highest = 0.0;
    std::vector<Spectrum> spectra;
    for (const Sound &sound : sounds) {
        spectra.push_back(spectrumOf(sound.samples, paddedSize));
        for (std::size_t other = 0; other + 1 < spectra.size(); ++other) {
            const double likeness = highestCorrelation(spectra.back(), spectra[other]);
            const std::string pair = sound.name + " and " + sounds[other].name;
            verify(likeness < 0.35, pair + " correlate by " + text(likeness));
            highest = std::max(highest, likeness);
        }
    }
    return highest;
}

void generationIsRepeatable(const std::vector<Sound> &sounds)
{
    const std::vector<Sound> again = generatedSounds();
    for (std::size_t index = 0; index < sounds.size(); ++index) {
        const bool equal = sounds[index].file == again[index].file;
        verify(equal, sounds[index].name + " differs between two generations");
    }
}

void printMeasures(const std::vector<Sound> &sounds, double likeness)
{
    for (const Sound &sound : sounds) {
        std::cout << std::left << std::setw(10) << sound.name << std::right << std::fixed
                  << std::setprecision(3) << std::setw(7) << duration(sound) << " s"
                  << std::setprecision(2) << std::setw(8) << peakLevel(sound.samples) << " dBFS"
                  << std::setw(8) << momentaryLoudness(sound.samples) << " LUFS" << std::setw(8)
                  << loudestLevel(sound.samples) << " dB" << std::setw(8) << sound.file.size()
                  << " bytes\n";
    }
    std::cout << "total " << totalBytes(sounds) << " bytes; spread of loudness "
              << spread(sounds, momentaryLoudness) << " dB, of level "
              << spread(sounds, loudestLevel) << " dB; highest correlation " << likeness << '\n';
}

} // namespace

int main()
{
    const std::vector<Sound> sounds = generatedSounds();
    meterReadsReferenceTone();
    namesAreComplete(sounds);
    formatIsMonoSixteenBit(sounds);
    lengthsAreShort(sounds);
    filesAreSmall(sounds);
    peaksAreEqual(sounds);
    loudnessIsAlike(sounds);
    levelsAreAlike(sounds);
    endsAreSilent(sounds);
    meansAreZero(sounds);
    peaksAreRound(sounds);
    const double likeness = soundsAreDistinct(sounds);
    generationIsRepeatable(sounds);
    printMeasures(sounds, likeness);
    return failureCount == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
