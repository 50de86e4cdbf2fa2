// SPDX-License-Identifier: MIT
#include "look/Shadow.h"

#include "look/Squircle.h"

#include <QImage>
#include <QPainter>
#include <QPixmapCache>

#include <array>
#include <cmath>
#include <vector>

namespace
{
// Shadows are blurred at a resolution at which the standard deviation is at most this many pixels;
// a higher resolution would show no more detail.
constexpr qreal sharpestSigma = 2.25;
// The part of a cached shadow's horizontal edges that wider shadows repeat, in logical pixels.
constexpr int repeatedLength = 64;

void blurLine(uchar *line, qsizetype stride, int length, int reach, std::vector<uchar> &copy)
{
    for (int i = 0; i < length; ++i) {
        copy[static_cast<size_t>(i)] = line[i * stride];
    }
    const auto at = [&copy, length](int i) {
        return i >= 0 && i < length ? int{copy[static_cast<size_t>(i)]} : 0;
    };
    const int width = 2 * reach + 1;
    int sum = 0;
    for (int i = -reach; i < reach; ++i) {
        sum += at(i);
    }
    for (int i = 0; i < length; ++i) {
        sum += at(i + reach) - (i > 0 ? at(i - reach - 1) : 0);
        line[i * stride] = static_cast<uchar>(sum / width);
    }
}

/// Three successive box blurs approximate a Gaussian blur to within 3 % (W3C, Filter Effects,
/// feGaussianBlur).
void blur(QImage &alpha, qreal sigma)
{
    const int reach
        = qMax(1, static_cast<int>(std::lround((std::sqrt(4 * sigma * sigma + 1) - 1) / 2)));
    std::vector<uchar> copy(static_cast<size_t>(qMax(alpha.width(), alpha.height())));
    for (int pass = 0; pass < 3; ++pass) {
        for (int y = 0; y < alpha.height(); ++y) {
            blurLine(alpha.scanLine(y), 1, alpha.width(), reach, copy);
        }
        for (int x = 0; x < alpha.width(); ++x) {
            blurLine(alpha.bits() + x, alpha.bytesPerLine(), alpha.height(), reach, copy);
        }
    }
}

QImage blurredShape(const QRectF &bounds, const QRectF &rect, qreal radius, qreal sigma)
{
    const qreal scale = qMin(1.0, sharpestSigma / sigma);
    QImage alpha((bounds.size() * scale).toSize(), QImage::Format_Alpha8);
    alpha.fill(Qt::transparent);
    QPainter painter(&alpha);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(alpha.width() / bounds.width(), alpha.height() / bounds.height());
    painter.translate(-bounds.topLeft());
    painter.fillPath(squirclePath(rect, radius), Qt::black);
    painter.end();
    blur(alpha, sigma * scale);
    return alpha;
}

QImage tinted(const QImage &alpha, const QColor &color)
{
    QImage image(alpha.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(color);
    QPainter painter(&image);
    painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
    painter.drawImage(0, 0, alpha);
    return image;
}

/// The shadow of @p rect within @p bounds, with @p ratio pixels of the picture for each logical
/// one.
QPixmap drawn(const Shadow &shadow, const QRectF &bounds, const QRectF &rect, qreal radius,
              qreal ratio)
{
    const QRectF fallen = rect.translated(0, shadow.offsetY);
    QPixmap pixmap((bounds.size() * ratio).toSize());
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHints(QPainter::SmoothPixmapTransform | QPainter::Antialiasing);
    painter.drawImage(QRectF(QPointF(), bounds.size()),
                      tinted(blurredShape(bounds, fallen, radius, shadow.blur / 2), shadow.color));
    painter.translate(-bounds.topLeft());
    painter.setCompositionMode(QPainter::CompositionMode_DestinationOut);
    painter.fillPath(squirclePath(rect, radius), Qt::black);
    painter.end();
    pixmap.setDevicePixelRatio(1); // is drawn pixel by pixel
    return pixmap;
}

/// The result of drawn(), cached for rectangles of the same size.
QPixmap kept(const Shadow &shadow, const QRectF &bounds, const QRectF &rect, qreal radius,
             qreal ratio)
{
    const QString key = QStringLiteral("tovla-shadow %1 %2 %3 %4 %5x%6 %7")
                            .arg(shadow.offsetY)
                            .arg(shadow.blur)
                            .arg(shadow.color.name(QColor::HexArgb))
                            .arg(radius)
                            .arg(rect.width())
                            .arg(rect.height())
                            .arg(ratio);
    QPixmap pixmap;
    if (!QPixmapCache::find(key, &pixmap)) {
        pixmap = drawn(shadow, bounds, rect, radius, ratio);
        QPixmapCache::insert(key, pixmap);
    }
    return pixmap;
}

/// A part of the picture of a shadow, and where it is drawn, both in device pixels.
struct Span {
    int from;
    int fromLength;
    int to;
    int toLength;
};

/// The two ends of an edge, which are drawn unchanged, and @p middle pixels between them.
std::array<Span, 3> spans(int from, int middle, int to, int length)
{
    const int end = (from - middle) / 2;
    return {Span{0, end, to, end}, Span{end, from - 2 * end, to + end, length - 2 * end},
            Span{from - end, end, to + length - end, end}};
}

void drawRepeated(QPainter &painter, const QPixmap &pixmap, const Span &x, const Span &y)
{
    for (int done = 0; done < x.toLength; done += x.fromLength) {
        painter.drawPixmap(x.to + done, y.to, pixmap, x.from, y.from,
                           qMin(x.fromLength, x.toLength - done), y.fromLength);
    }
}

/// Draws @p pixmap over @p to, both in device pixels: the corners unchanged, the middle
/// @p repeated pixels of the horizontal edges again and again, which is several times faster than
/// stretching them, and the vertical edges stretched. Nothing is drawn in the centre.
void drawExtended(QPainter &painter, const QRect &to, const QPixmap &pixmap, int repeated)
{
    const auto [top, sides, bottom] = spans(pixmap.height(), 1, to.top(), to.height());
    const auto [left, middle, right] = spans(pixmap.width(), repeated, to.left(), to.width());
    for (const Span &x : {left, right}) {
        for (const Span &y : {top, sides, bottom}) {
            painter.drawPixmap(QRect(x.to, y.to, x.toLength, y.toLength), pixmap,
                               QRect(x.from, y.from, x.fromLength, y.fromLength));
        }
    }
    drawRepeated(painter, pixmap, middle, top);
    drawRepeated(painter, pixmap, middle, bottom);
}
} // namespace

// Blurring is slow and windows grow, so the shadow of a small squircle is cached and extended for
// larger ones.
void Shadow::paint(QPainter &painter, const QRectF &rect, qreal radius) const
{
    // Beyond three standard deviations, the shadow is invisible.
    const qreal reach = 1.5 * blur;
    const QMarginsF around(reach, reach - offsetY, reach, reach + offsetY);
    // How far a corner is visible along an edge: its curve, and its shadow down to one level in
    // 255.
    const qreal corner = std::ceil(qMax(1.6 * radius, 1.1 * blur + offsetY));
    const QRectF small({}, rect.size().boundedTo({2 * corner + repeatedLength, 2 * corner}));
    const qreal ratio = painter.device()->devicePixelRatioF();
    const QPixmap pixmap = kept(*this, small.marginsAdded(around), small, radius, ratio);

    const QRectF to = rect.marginsAdded(around);
    painter.save();
    painter.scale(1 / ratio, 1 / ratio);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform, false);
    drawExtended(painter, QRectF(to.topLeft() * ratio, to.size() * ratio).toRect(), pixmap,
                 qRound(repeatedLength * ratio));
    painter.restore();
}
