// SPDX-License-Identifier: MIT
#include "prompt/PromptGlassBackground.h"

#include "look/Look.h"

using Behind = FloatingWindow::Behind;

QColor PromptGlassBackground::color(Behind behind) const
{
    return behind == Behind::Opaque ? material() : glass(behind);
}

QColor PromptGlassBackground::glass(Behind behind) const
{
    const QColor base = atOpacity(isLight() ? QColor(0xF6F6F6) : QColor(0x28282A),
                                  behind == Behind::Blurred ? 0.82 : 0.90);
    return isLight() ? layered(atOpacity(Qt::white, 0.08), base) : base;
}

QColor PromptGlassBackground::material() const
{
    const QColor base = layered(atOpacity(isLight() ? QColor(0xF6F6F6) : QColor(0x3A3A3C), 0.52),
                                isLight() ? QColor(0xECECEC) : QColor(0x28282A));
    return isLight() ? layered(atOpacity(Qt::white, 0.06), base) : base;
}
