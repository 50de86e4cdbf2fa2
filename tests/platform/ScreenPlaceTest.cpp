// SPDX-License-Identifier: MIT
#include "platform/linux/tray/ScreenPlace.h"

#include <QGuiApplication>
#include <QScreen>
#include <QTest>

namespace
{
qreal ratio()
{
    return QGuiApplication::primaryScreen()->devicePixelRatio();
}
} // namespace

class ScreenPlaceTest final : public QObject
{
    Q_OBJECT

private slots:
    void place_isScaled()
    {
        QCOMPARE(logicalPlace({0, 0}), QPoint(0, 0));
        QCOMPARE(logicalPlace({300, 150}), QPoint(300, 150) / ratio());
    }

    void corner_isOnTheScreen_whatIsBeyondIsNot()
    {
        const QSize size = QGuiApplication::primaryScreen()->geometry().size() * ratio();
        const QPoint corner(size.width() - 1, size.height() - 1);
        QCOMPARE(logicalPlace(corner), corner / ratio());
        QVERIFY(!logicalPlace(corner + QPoint(1, 0)));
        QVERIFY(!logicalPlace(corner + QPoint(0, 1)));
        QVERIFY(!logicalPlace({-1, 0}));
    }
};

QTEST_MAIN(ScreenPlaceTest)
#include "ScreenPlaceTest.moc"
