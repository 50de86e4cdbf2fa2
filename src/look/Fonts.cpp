// SPDX-License-Identifier: MIT
#include "look/Fonts.h"

#include <QFontDatabase>

QFont systemFont(int pixelSize, QFont::Weight weight)
{
    QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    font.setPixelSize(pixelSize);
    font.setWeight(weight);
    return font;
}
