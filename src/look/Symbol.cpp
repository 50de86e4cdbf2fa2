// SPDX-License-Identifier: MIT
#include "look/Symbol.h"

#include <QImageReader>
#include <QPainter>

QPixmap symbol(const QString &name, const QSize &size, const QColor &color, qreal devicePixelRatio)
{
    QImageReader reader(QStringLiteral(":/symbols/%1.svg").arg(name));
    reader.setScaledSize(size * devicePixelRatio);
    QImage image = reader.read();
    if (image.isNull()) {
        return {};
    }
    image.convertTo(QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&image);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(image.rect(), color);
    painter.end();
    image.setDevicePixelRatio(devicePixelRatio);
    return QPixmap::fromImage(image);
}
