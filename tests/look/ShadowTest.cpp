// SPDX-License-Identifier: MIT
#include "look/Shadow.h"

#include <QImage>
#include <QPainter>
#include <QTest>

namespace
{
constexpr int margin = 70;

QImage drawn(const QSize &size, qreal ratio)
{
    QImage image((size.grownBy({margin, margin, margin, margin}) * ratio),
                 QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    Shadow{.offsetY = 12, .blur = 36, .color = QColor(0, 0, 0, 72)}.paint(
        painter, QRectF(QPointF(margin, margin), size), 18, Qt::transparent);
    return image;
}
} // namespace

class ShadowTest final : public QObject
{
    Q_OBJECT

private slots:
    void shadow_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<qreal>("ratio");
        for (const QSize size :
             {QSize(560, 104), QSize(560, 137), QSize(560, 372), QSize(61, 40)}) {
            for (const qreal ratio : {1.0, 1.25, 1.5, 2.0}) {
                QTest::addRow("%dx%d at %g", size.width(), size.height(), ratio) << size << ratio;
            }
        }
    }

    void shadow()
    {
        QFETCH(const QSize, size);
        QFETCH(const qreal, ratio);
        const QImage image = drawn(size, ratio);
        const auto alphaAt = [&image, ratio](qreal x, qreal y) {
            return qAlpha(image.pixel(qRound((margin + x) * ratio), qRound((margin + y) * ratio)));
        };
        const qreal middle = size.width() / 2.0;
        // Nothing inside, so that the frame may be translucent.
        QCOMPARE(alphaAt(middle, size.height() / 2.0), 0);
        QCOMPARE(alphaAt(middle, 3), 0);
        QCOMPARE(alphaAt(middle, size.height() - 3), 0);
        // It falls downward and ends before the picture does.
        QVERIFY(alphaAt(middle, size.height() + 2) > alphaAt(middle, -3));
        for (const int end : {0, image.height() - 1}) {
            QCOMPARE(qAlpha(image.pixel(image.width() / 2, end)), 0);
        }
        for (const int end : {0, image.width() - 1}) {
            QCOMPARE(qAlpha(image.pixel(end, image.height() / 2)), 0);
        }
    }

    void shadow_hasNoSeams_data() { shadow_data(); }
    void shadow_hasNoSeams()
    {
        QFETCH(const QSize, size);
        QFETCH(const qreal, ratio);
        const QImage image = drawn(size, ratio);
        const int below = qRound((margin + size.height() + 6) * ratio);
        const int beside = qRound((margin - 6) * ratio);
        constexpr int mostOfAStep = 4;
        for (int x = 1; x < image.width(); ++x) {
            QVERIFY(qAbs(qAlpha(image.pixel(x, below)) - qAlpha(image.pixel(x - 1, below)))
                    <= mostOfAStep);
        }
        for (int y = 1; y < image.height(); ++y) {
            QVERIFY(qAbs(qAlpha(image.pixel(beside, y)) - qAlpha(image.pixel(beside, y - 1)))
                    <= mostOfAStep);
        }
    }
};

QTEST_MAIN(ShadowTest)
#include "ShadowTest.moc"
