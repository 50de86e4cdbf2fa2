// SPDX-License-Identifier: MIT
#include "Sounds.h"

#include "Mastering.h"
#include "StruckSounds.h"
#include "VoicedSounds.h"

#include <array>

namespace Synthesis
{

std::span<const Recipe> recipes()
{
    static constexpr std::array table{
        Recipe{"Basso", basso},         Recipe{"Blow", blow},
        Recipe{"Bottle", bottle},       Recipe{"Frog", frog},
        Recipe{"Funk", funk},           Recipe{"Glass", glass},
        Recipe{"Hero", hero},           Recipe{"Morse", morse},
        Recipe{"Ping", ping},           Recipe{"Pop", pop},
        Recipe{"Purr", purr},           Recipe{"Sosumi", sosumi},
        Recipe{"Submarine", submarine}, Recipe{"Tink", tink},
    };
    return table;
}

Samples finished(const Recipe &recipe)
{
    return mastered(recipe.make());
}

} // namespace Synthesis
