// SPDX-License-Identifier: MIT
#include "look/Shadow.h"

#include "look/ExtendedPicture.h"
#include "look/Squircle.h"

#include <QImage>
#include <QPainter>
#include <QPainterPath>

#include <cmath>
#include <vector>

namespace
{
// Shadows are blurred at a resolution at which the standard deviation is at most this many pixels;
// a higher resolution would show no more detail.
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
} // namespace

QMarginsF Shadow::margins() const
{
    // Beyond three standard deviations, the shadow is invisible. Whole pixels, because the toolkit
    // draws a picture that is not scaled at no other place.
    const qreal reach = std::ceil(1.5 * blur);
    return {reach, reach - offsetY, reach, reach + offsetY};
}

qreal Shadow::end(qreal radius) const
{
    // A corner's curve, or its shadow down to one level in 255.
    return qMax(1.6 * radius, 1.1 * blur + offsetY);
}

void Shadow::draw(QPainter &painter, const QRectF &rect, qreal radius, const QColor &face) const
{
    const QRectF bounds = rect.marginsAdded(margins());
    const QImage image
        = tinted(blurredShape(bounds, rect.translated(0, offsetY), radius, blur / 2), color);
    painter.setRenderHints(QPainter::SmoothPixmapTransform | QPainter::Antialiasing);
    painter.drawImage(bounds, image);
    const QPainterPath shape = squirclePath(rect, radius);
    painter.setCompositionMode(QPainter::CompositionMode_DestinationOut);
    painter.fillPath(shape, Qt::black);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    painter.fillPath(shape, face);
}

void Shadow::paint(QPainter &painter, const QRectF &rect, qreal radius, const QColor &face) const
{
    const QString name = QStringLiteral("shadow %1 %2 %3 %4 %5")
                             .arg(offsetY)
                             .arg(blur)
                             .arg(color.name(QColor::HexArgb), face.name(QColor::HexArgb))
                             .arg(radius);
    ExtendedPicture{.name = name, .around = margins(), .end = end(radius)}.paint(
        painter, rect,
        [&](QPainter &picture, const QRectF &small) { draw(picture, small, radius, face); });
}
