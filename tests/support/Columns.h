// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QImage>
#include <QWidget>

/// The number of pixel columns of @p widget's picture in which at least eight pixels have @p color,
/// as in a caret. Without its outermost pixels, where the focus ring may be.
inline int columnsOf(QWidget &widget, const QColor &color)
{
    constexpr int margin = 5;
    constexpr int enough = 8;
    const QImage picture = widget.grab().toImage();
    int columns = 0;
    for (int x = margin; x < picture.width() - margin; ++x) {
        int pixels = 0;
        for (int y = margin; y < picture.height() - margin; ++y) {
            pixels += picture.pixelColor(x, y) == color ? 1 : 0;
        }
        columns += pixels >= enough ? 1 : 0;
    }
    return columns;
}
