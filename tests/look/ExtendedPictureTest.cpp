// SPDX-License-Identifier: MIT
#include "look/ExtendedPicture.h"

#include "look/Squircle.h"

#include <QImage>
#include <QPainter>
#include <QPixmapCache>
#include <QTest>

namespace
{
constexpr int width = 200;
constexpr qreal radius = 18;
const QMarginsF around(6, 4, 6, 8);

/// A frame with a line around it, which differs above, in and below the rectangle.
void drawFrame(QPainter &painter, const QRectF &rect)
{
    painter.fillPath(squirclePath(rect.marginsAdded(around), radius), QColor(0, 0, 255, 80));
    painter.fillPath(squirclePath(rect, radius), QColor(255, 0, 0, 200));
}

QImage painted(int height, qreal ratio, const ExtendedPicture::Draw &paint)
{
    const QSizeF whole = QSizeF(width, height).grownBy(around);
    QImage image((whole * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    paint(painter, QRectF(around.left(), around.top(), width, height));
    return image;
}

const ExtendedPicture frame{.name = QStringLiteral("frame"), .around = around, .end = 30};
} // namespace

class ExtendedPictureTest final : public QObject
{
    Q_OBJECT

private slots:
    void init() { QPixmapCache::clear(); }

    void anyHeight_looksAsIfDrawn_data()
    {
        QTest::addColumn<int>("height");
        QTest::addColumn<qreal>("ratio");
        for (const int height : {1, 20, 59, 60, 75, 76, 77, 92, 93, 132, 400}) {
            for (const qreal ratio : {1.0, 2.0}) {
                QTest::addRow("%d at %g", height, ratio) << height << ratio;
            }
        }
    }
    void anyHeight_looksAsIfDrawn()
    {
        QFETCH(const int, height);
        QFETCH(const qreal, ratio);
        const auto extend
            = [](QPainter &painter, const QRectF &rect) { frame.paint(painter, rect, drawFrame); };
        QCOMPARE(painted(height, ratio, extend), painted(height, ratio, drawFrame));
    }

    void picture_isDrawnOnce_forAllGreaterHeights()
    {
        int drawings = 0;
        const auto extend = [&drawings](QPainter &painter, const QRectF &rect) {
            frame.paint(painter, rect, [&drawings](QPainter &picture, const QRectF &small) {
                ++drawings;
                drawFrame(picture, small);
            });
        };
        for (const int height : {76, 77, 132, 400}) {
            (void)painted(height, 1, extend);
        }
        QCOMPARE(drawings, 1);
        (void)painted(400, 2, extend);
        QCOMPARE(drawings, 2);
    }
};

QTEST_MAIN(ExtendedPictureTest)
#include "ExtendedPictureTest.moc"
