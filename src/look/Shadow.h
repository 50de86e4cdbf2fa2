// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QRectF>

class QPainter;

/// The soft shadow of a squircle. Lengths are in logical pixels; the blur is twice the standard
/// deviation.
struct Shadow {
    qreal offsetY;
    qreal blur;
    QColor color;

    /// Draws the shadow around @p rect with corners of @p radius. Nothing is drawn inside the
    /// squircle itself, so that it can be translucent.
    void paint(QPainter &painter, const QRectF &rect, qreal radius) const;
};
