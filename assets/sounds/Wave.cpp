// SPDX-License-Identifier: MIT
#include "Wave.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <string_view>

namespace Synthesis
{

namespace
{
constexpr std::uint32_t bytesPerFrame = 2;
constexpr std::uint32_t headerBytes = 36;

void appendText(Bytes &bytes, std::string_view text)
{
    for (const char character : text) {
        bytes.push_back(static_cast<std::uint8_t>(character));
    }
}

// Little-endian, regardless of the machine's byte order.
void appendNumber(Bytes &bytes, std::uint32_t value, int byteCount)
{
    for (int index = 0; index < byteCount; ++index) {
        bytes.push_back(static_cast<std::uint8_t>((value >> (8 * index)) & 0xffU));
    }
}

void appendFormat(Bytes &bytes)
{
    constexpr std::uint32_t linearSamples = 1;
    constexpr std::uint32_t channels = 1;
    constexpr std::uint32_t rate = sampleRate;
    appendText(bytes, "fmt ");
    appendNumber(bytes, 16, 4);
    appendNumber(bytes, linearSamples, 2);
    appendNumber(bytes, channels, 2);
    appendNumber(bytes, rate, 4);
    appendNumber(bytes, rate * bytesPerFrame, 4);
    appendNumber(bytes, bytesPerFrame, 2);
    appendNumber(bytes, 8 * bytesPerFrame, 2);
}
} // namespace

std::vector<std::int16_t> quantised(const Samples &samples)
{
    std::vector<std::int16_t> frames;
    frames.reserve(samples.size());
    for (const double sample : samples) {
        const double limited = std::clamp(sample, -1.0, 1.0);
        frames.push_back(static_cast<std::int16_t>(std::lround(32767.0 * limited)));
    }
    return frames;
}

Bytes waveFile(const std::vector<std::int16_t> &frames)
{
    const auto dataBytes = static_cast<std::uint32_t>(frames.size()) * bytesPerFrame;
    Bytes bytes;
    appendText(bytes, "RIFF");
    appendNumber(bytes, headerBytes + dataBytes, 4);
    appendText(bytes, "WAVE");
    appendFormat(bytes);
    appendText(bytes, "data");
    appendNumber(bytes, dataBytes, 4);
    for (const std::int16_t frame : frames) {
        appendNumber(bytes, static_cast<std::uint16_t>(frame), 2);
    }
    return bytes;
}

bool writeFile(const std::filesystem::path &path, const Bytes &bytes)
{
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    for (const std::uint8_t byte : bytes) {
        file.put(static_cast<char>(byte));
    }
    file.close();
    return file.good();
}

} // namespace Synthesis
