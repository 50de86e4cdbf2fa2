// SPDX-License-Identifier: MIT
#pragma once

#include "Synthesis.h"

#include <cstdint>
#include <filesystem>
#include <vector>

namespace Synthesis
{

using Bytes = std::vector<std::uint8_t>;

// Rounds to 16 bits; full scale is 32767.
std::vector<std::int16_t> quantised(const Samples &samples);

// A complete RIFF WAVE file with one channel of 16-bit linear samples.
Bytes waveFile(const std::vector<std::int16_t> &frames);

// Returns whether the whole file was written.
bool writeFile(const std::filesystem::path &path, const Bytes &bytes);

} // namespace Synthesis
