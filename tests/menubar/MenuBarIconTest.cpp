// SPDX-License-Identifier: MIT
#include "menubar/menuBarIcon.h"

#include <QBuffer>
#include <QIcon>
#include <QImageReader>
#include <QPainter>
#include <QTest>

using namespace Qt::StringLiterals;

namespace
{
QImage drawn(const QSize &size, const QRectF &rect, qreal ratio = 1)
{
    QImage image(size * ratio, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    MenuBarIcon::draw(painter, rect, Qt::black);
    return image;
}

/// Distances from the centre, in pixels, at which a ray to the right enters or leaves the ink.
QList<int> edgesToTheRight(const QImage &image)
{
    QList<int> edges;
    const int y = image.height() / 2;
    bool wasInk = true;
    for (int x = image.width() / 2; x < image.width(); ++x) {
        const bool isInk = image.pixelColor(x, y).alpha() >= 128;
        if (isInk != wasInk) {
            edges.append(x - image.width() / 2);
            wasInk = isInk;
        }
    }
    return edges;
}
} // namespace

class MenuBarIconTest final : public QObject
{
    Q_OBJECT

private slots:
    void draw_hasTheDesignsRadii()
    {
        // At 100 pixels per point: 1.8, then 4.68 and 7.56 with half the line width on each side.
        const QImage image = drawn(QSize(18, 18), QRectF(0, 0, 18, 18), 100);
        const QList<int> expected{180, 403, 533, 704, 808};
        const QList<int> edges = edgesToTheRight(image);
        QCOMPARE(edges.size(), expected.size());
        for (qsizetype i = 0; i < expected.size(); ++i) {
            QVERIFY2(qAbs(edges.at(i) - expected.at(i)) <= 1,
                     qPrintable(QString::number(edges.at(i))));
        }
    }

    void draw_inALargerRect_onlyMovesTheCentre()
    {
        const QImage alone = drawn(QSize(18, 18), QRectF(0, 0, 18, 18));
        const QImage inside = drawn(QSize(40, 64), QRectF(0, 0, 40, 64));
        QCOMPARE(inside.copy(11, 23, 18, 18), alone);
        QImage rest = inside;
        QPainter painter(&rest);
        painter.setCompositionMode(QPainter::CompositionMode_Clear);
        painter.fillRect(11, 23, 18, 18, Qt::black);
        painter.end();
        QImage nothing(rest.size(), rest.format());
        nothing.fill(Qt::transparent);
        QCOMPARE(rest, nothing);
    }

    void icon_hasTheInstalledName_andAPicture()
    {
        const QIcon icon = MenuBarIcon::icon(Qt::white);
        QCOMPARE(icon.name(), u"org.tovla.Tovla-symbolic"_s);
        const QImage image = icon.pixmap(QSize(22, 22)).toImage();
        QCOMPARE(image.pixelColor(11, 11), QColor(Qt::white));
        QCOMPARE(image.pixelColor(0, 0).alpha(), 0);
    }

    void icon_fillsItsPictures()
    {
        const QImage large = MenuBarIcon::icon(Qt::black).pixmap(QSize(180, 180), 1.0).toImage();
        QCOMPARE(edgesToTheRight(large),
                 edgesToTheRight(drawn(QSize(18, 18), QRectF(0, 0, 18, 18), 10)));
    }

    void svg_showsTheSamePicture()
    {
        QByteArray bytes = MenuBarIcon::svg();
        QVERIFY(bytes.contains("viewBox=\"0 0 18 18\""));
        QVERIFY(!bytes.contains("stroke"));
        // KDE's panels look for these.
        QVERIFY(bytes.contains("id=\"current-color-scheme\""));
        QVERIFY(bytes.contains("class=\"ColorScheme-Text\" fill=\"currentColor\""));
        QBuffer buffer(&bytes);
        QImageReader reader(&buffer, "svg");
        reader.setScaledSize(QSize(180, 180));
        const QImage image = reader.read();
        QVERIFY2(!image.isNull(), qPrintable(reader.errorString()));
        const QImage ours = drawn(QSize(18, 18), QRectF(0, 0, 18, 18), 10);
        const QList<int> expected = edgesToTheRight(ours);
        const QList<int> edges = edgesToTheRight(image);
        QCOMPARE(edges.size(), expected.size());
        for (qsizetype i = 0; i < expected.size(); ++i) {
            QVERIFY(qAbs(edges.at(i) - expected.at(i)) <= 1);
        }
    }
};

QTEST_MAIN(MenuBarIconTest)
#include "MenuBarIconTest.moc"
