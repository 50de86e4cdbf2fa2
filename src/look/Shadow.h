// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QPixmap>
#include <QRectF>

class QPainter;

/// A soft shadow; lengths in logical pixels, the blur as twice the standard deviation.
struct Shadow {
    qreal offsetY;
    qreal blur;
    QColor color;
};

/// Draws shadows of squircles. Blurring is slow, so the last shadow is kept and drawn again for as
/// long as nothing about it changes.
class ShadowPainter final
{
public:
    /// Draws what the shadow of @p rect, with corners of @p radius, shows around it. Where the
    /// squircle itself lies nothing is drawn, so that it may be translucent.
    void paint(QPainter &painter, const QRectF &rect, qreal radius, const Shadow &shadow);

private:
    QSizeF m_size;
    QColor m_color;
    QPixmap m_pixmap;
};
