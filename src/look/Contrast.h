// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>

#include <initializer_list>

/// The contrast ratio of two opaque colours, from 1 to 21 (WCAG 2.2).
[[nodiscard]] double contrast(const QColor &one, const QColor &other);

/// @p start, mixed with just enough of @p end to reach the contrast @p ratio with each of @p bases;
/// @p end itself if no mixture does.
[[nodiscard]] QColor withContrast(const QColor &start, const QColor &end, double ratio,
                                  std::initializer_list<QColor> bases);
