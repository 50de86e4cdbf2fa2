// SPDX-License-Identifier: MIT
#include "look/ExtendedPicture.h"

#include <QPainter>
#include <QPixmapCache>
#include <QtMath>

namespace
{
// The height of the part of a cached picture that is repeated, in logical pixels.
constexpr int repeatedHeight = 16;
// Heights that are multiples of this are whole numbers of device pixels at all usual scales.
constexpr int wholeHeight = 4;

/// The picture for a rectangle of @p size and the @p around it, in device pixels; @p ratio is the
/// number of these for each logical one.
QPixmap drawn(const ExtendedPicture::Draw &draw, const QSizeF &size, const QMargins &around,
              qreal ratio)
{
    QPixmap pixmap((size * ratio).toSize().grownBy(around));
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(around.left(), around.top());
    painter.scale(ratio, ratio);
    draw(painter, QRectF({}, size));
    return pixmap;
}

/// Paints @p pixmap over @p to: its upper and its lower end as they are, and the rows between them
/// again and again; all in device pixels.
void extend(QPainter &painter, const QRect &to, const QPixmap &pixmap, int upperEnd, int lowerEnd)
{
    const auto copy = [&](int from, int below, int rows) {
        painter.drawPixmap(to.x(), to.y() + below, pixmap, 0, from, pixmap.width(), rows);
    };
    copy(0, 0, upperEnd);
    const int rows = pixmap.height() - upperEnd - lowerEnd;
    const int lower = to.height() - lowerEnd;
    for (int below = upperEnd; below < lower; below += rows) {
        copy(upperEnd, below, qMin(rows, lower - below));
    }
    copy(upperEnd + rows, lower, lowerEnd);
}
} // namespace

// Edges are put on whole device pixels, so that they are sharp at every scale.
void ExtendedPicture::paint(QPainter &painter, const QRectF &rect, const Draw &draw) const
{
    const int extendable = wholeHeight * qCeil((2 * end + repeatedHeight) / wholeHeight);
    const bool isExtended = rect.height() > extendable;
    const QSizeF size(rect.width(), isExtended ? extendable : rect.height());
    const qreal ratio = painter.device()->devicePixelRatioF();
    const QMargins margins(qCeil(around.left() * ratio), qCeil(around.top() * ratio),
                           qCeil(around.right() * ratio), qCeil(around.bottom() * ratio));
    const QString key = QStringLiteral("tovla %1 %2x%3 %4")
                            .arg(name)
                            .arg(size.width())
                            .arg(size.height())
                            .arg(ratio);
    QPixmap pixmap;
    if (!QPixmapCache::find(key, &pixmap)) {
        pixmap = drawn(draw, size, margins, ratio);
        QPixmapCache::insert(key, pixmap);
    }
    const QRect to((rect.topLeft() * ratio).toPoint(), (rect.size() * ratio).toSize());
    const QRect place = to.marginsAdded(margins);
    painter.save();
    painter.scale(1 / ratio, 1 / ratio);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform, false);
    if (isExtended) {
        const int endRows = qCeil(end * ratio);
        extend(painter, place, pixmap, margins.top() + endRows, margins.bottom() + endRows);
    } else {
        painter.drawPixmap(place.topLeft(), pixmap);
    }
    painter.restore();
}
