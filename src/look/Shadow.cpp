// SPDX-License-Identifier: MIT
#include "look/Shadow.h"

#include "look/Squircle.h"

#include <QImage>
#include <QPainter>

#include <cmath>
#include <vector>

namespace
{
// A blurred picture has no detail finer than this many standard deviations per pixel shows.
constexpr qreal sharpestSigma = 2.25;

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

/// Three box blurs in a row come within 3 % of a Gaussian one (W3C, Filter Effects,
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

/// The shadow's shape at @p scale pixels a logical pixel, with room for the blur on each side.
QImage blurredShape(const QRectF &bounds, const QRectF &rect, qreal radius, qreal sigma,
                    qreal scale)
{
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

QPixmap pixmapFor(const QRectF &bounds, const QRectF &rect, qreal radius, const Shadow &shadow,
                  qreal ratio)
{
    const qreal sigma = shadow.blur / 2;
    const qreal scale = qMin(1.0, sharpestSigma / sigma);
    const QRectF fallen = rect.translated(0, shadow.offsetY);
    QPixmap pixmap((bounds.size() * ratio).toSize());
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHints(QPainter::SmoothPixmapTransform | QPainter::Antialiasing);
    painter.drawImage(QRectF(QPointF(), bounds.size()),
                      tinted(blurredShape(bounds, fallen, radius, sigma, scale), shadow.color));
    painter.translate(-bounds.topLeft());
    painter.setCompositionMode(QPainter::CompositionMode_DestinationOut);
    painter.fillPath(squirclePath(rect, radius), Qt::black);
    return pixmap;
}
} // namespace

void ShadowPainter::paint(QPainter &painter, const QRectF &rect, qreal radius, const Shadow &shadow)
{
    const qreal ratio = painter.device()->devicePixelRatioF();
    // Beyond three standard deviations nothing is left of a shadow.
    const qreal reach = 1.5 * shadow.blur;
    const QRectF bounds
        = rect.adjusted(-reach, -reach + shadow.offsetY, reach, reach + shadow.offsetY);
    if (m_size != rect.size() || m_color != shadow.color
        || !qFuzzyCompare(m_pixmap.devicePixelRatio(), ratio)) {
        m_size = rect.size();
        m_color = shadow.color;
        m_pixmap = pixmapFor(bounds, rect, radius, shadow, ratio);
    }
    painter.drawPixmap(bounds.topLeft(), m_pixmap);
}
