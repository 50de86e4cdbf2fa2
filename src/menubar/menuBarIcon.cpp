// SPDX-License-Identifier: MIT
#include "menubar/menuBarIcon.h"

#include <QIconEngine>
#include <QPainter>

#include <algorithm>
#include <array>

namespace MenuBarIcon
{
namespace
{
constexpr qreal dotRadius = size * 0.1;

struct Ring {
    qreal radius;
    qreal lineWidth;
};
// The outer ring is thinner, so that both look equally heavy.
constexpr std::array rings{Ring{size * 0.26, 0.072 * size}, Ring{size * 0.42, 0.058 * size}};

/// Draws on demand, so that lines are sharp at any device pixel ratio.
class Engine final : public QIconEngine
{
public:
    explicit Engine(const QColor &color)
        : m_color(color)
    {
    }

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode, QIcon::State) override
    {
        painter->save();
        painter->translate(QRectF(rect).center());
        const qreal scale = std::min(rect.width(), rect.height()) / size;
        painter->scale(scale, scale);
        draw(*painter, QRectF(-size / 2, -size / 2, size, size), m_color);
        painter->restore();
    }

    QPixmap pixmap(const QSize &pixelSize, QIcon::Mode mode, QIcon::State state) override
    {
        return scaledPixmap(pixelSize, mode, state, 1);
    }

    QPixmap scaledPixmap(const QSize &pixelSize, QIcon::Mode mode, QIcon::State state,
                         qreal ratio) override
    {
        QPixmap pixmap(pixelSize);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        painter.scale(ratio, ratio);
        paint(&painter, QRectF(QPointF(), QSizeF(pixelSize) / ratio).toRect(), mode, state);
        return pixmap;
    }

    QList<QSize> availableSizes(QIcon::Mode, QIcon::State) override
    {
        return {QSizeF(size, size).toSize()};
    }

    QString iconName() override { return QStringLiteral("org.tovla.Tovla-symbolic"); }

    [[nodiscard]] QIconEngine *clone() const override { return new Engine(m_color); }

private:
    QColor m_color;
};

QByteArray circle(qreal radius)
{
    const QByteArray r = QByteArray::number(radius, 'g', 10);
    const QByteArray start = QByteArray::number(size / 2 - radius, 'g', 10);
    const QByteArray diameter = QByteArray::number(2 * radius, 'g', 10);
    const QByteArray arc = "a" + r + ' ' + r + " 0 1 0 ";
    return 'M' + start + ' ' + QByteArray::number(size / 2) + arc + diameter + " 0" + arc + '-'
        + diameter + " 0z";
}
} // namespace

void draw(QPainter &painter, const QRectF &rect, const QColor &color)
{
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawEllipse(rect.center(), dotRadius, dotRadius);
    painter.setBrush(Qt::NoBrush);
    for (const Ring &ring : rings) {
        painter.setPen(QPen(color, ring.lineWidth));
        painter.drawEllipse(rect.center(), ring.radius, ring.radius);
    }
}

QByteArray svg()
{
    QByteArray shapes = circle(dotRadius);
    for (const Ring &ring : rings) {
        shapes
            += circle(ring.radius + ring.lineWidth / 2) + circle(ring.radius - ring.lineWidth / 2);
    }
    return QStringLiteral(
               R"(<svg xmlns="http://www.w3.org/2000/svg" width="%1" height="%1" viewBox="0 0 %1 %1">
<style type="text/css" id="current-color-scheme">.ColorScheme-Text { color: #232629; }</style>
<path class="ColorScheme-Text" fill="currentColor" fill-rule="evenodd" d="%2"/>
</svg>
)")
        .arg(size)
        .arg(QLatin1String(shapes))
        .toLatin1();
}

QIcon icon(const QColor &color)
{
    return QIcon(new Engine(color));
}
} // namespace MenuBarIcon
