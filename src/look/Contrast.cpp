// SPDX-License-Identifier: MIT
#include "look/Contrast.h"

#include "look/Look.h"

#include <algorithm>
#include <cmath>

namespace
{
double luminance(const QColor &color)
{
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF())
        + 0.0722 * linear(color.blueF());
}
} // namespace

double contrast(const QColor &one, const QColor &other)
{
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

QColor withContrast(const QColor &start, const QColor &end, double ratio,
                    std::initializer_list<QColor> bases)
{
    constexpr int steps = 50;
    for (int step = 0; step < steps; ++step) {
        const QColor candidate = mixed(end, double(step) / steps, start);
        if (std::ranges::all_of(bases, [&](const QColor &base) {
                return contrast(candidate.toRgb(), base) >= ratio;
            })) {
            return candidate;
        }
    }
    return end;
}
