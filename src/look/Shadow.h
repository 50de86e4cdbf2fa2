// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QMarginsF>

class QPainter;
class QRectF;

/// The soft shadow of a squircle. Lengths are in logical pixels; the blur is twice the standard
/// deviation.
struct Shadow {
    qreal offsetY;
    qreal blur;
    QColor color;

    /// How far it is visible beyond each edge.
    [[nodiscard]] QMarginsF margins() const;
    /// How far it differs from row to row, seen from the upper and the lower edge.
    [[nodiscard]] qreal end(qreal radius) const;

    /// Draws @p rect with corners of @p radius in the colour @p face, and the shadow around it.
    /// There is no shadow behind the face, so that it can be translucent. Cached for rectangles of
    /// the same width.
    void paint(QPainter &painter, const QRectF &rect, qreal radius, const QColor &face) const;
    /// Blurs and draws it anew, on a transparent picture.
    void draw(QPainter &painter, const QRectF &rect, qreal radius, const QColor &face) const;
};
