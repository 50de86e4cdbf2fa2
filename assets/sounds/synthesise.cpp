// SPDX-License-Identifier: MIT
#include "Sounds.h"
#include "Wave.h"

#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <string>
#include <system_error>

namespace
{

int failure(const std::string &message)
{
    std::cerr << "synthesise: " << message << '\n';
    return EXIT_FAILURE;
}

int writeAll(const std::filesystem::path &directory)
{
    for (const Synthesis::Recipe &recipe : Synthesis::recipes()) {
        const auto path = directory / (std::string(recipe.name) + ".wav");
        const auto bytes = Synthesis::waveFile(Synthesis::quantised(Synthesis::finished(recipe)));
        if (!Synthesis::writeFile(path, bytes)) {
            return failure("cannot write " + path.string());
        }
    }
    return EXIT_SUCCESS;
}

} // namespace

int main(int argumentCount, char *arguments[])
{
    if (argumentCount != 2) {
        return failure("usage: synthesise OUTPUT_DIR");
    }
    std::error_code error;
    std::filesystem::create_directories(arguments[1], error);
    if (error) {
        return failure(std::string("cannot create ") + arguments[1]);
    }
    return writeAll(arguments[1]);
}
