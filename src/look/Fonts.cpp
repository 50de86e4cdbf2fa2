// SPDX-License-Identifier: MIT
#include "look/Fonts.h"

QFont systemFont(int pixelSize, QFont::Weight weight)
{
    // Without a family of its own, it follows the application's.
    QFont font;
    font.setPixelSize(pixelSize);
    font.setWeight(weight);
    return font;
}
