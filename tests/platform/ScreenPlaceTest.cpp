// SPDX-License-Identifier: MIT
#include "platform/linux/tray/ScreenPlace.h"

#include <QGuiApplication>
#include <QScreen>
#include <QTest>

class ScreenPlaceTest final : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        const QScreen *const screen = QGuiApplication::primaryScreen();
        m_size = screen->geometry().size() * screen->devicePixelRatio();
        m_ratio = screen->devicePixelRatio();
    }

    void place_isScaled()
    {
        QCOMPARE(logicalPlace({0, 0}), QPoint(0, 0));
        QCOMPARE(logicalPlace({300, 150}), QPoint(300, 150) / m_ratio);
    }

    void corner_isOnTheScreen_whatIsBeyondIsNot()
    {
        const QPoint corner(m_size.width() - 1, m_size.height() - 1);
        QCOMPARE(logicalPlace(corner), corner / m_ratio);
        QVERIFY(!logicalPlace(corner + QPoint(1, 0)));
        QVERIFY(!logicalPlace(corner + QPoint(0, 1)));
        QVERIFY(!logicalPlace({-1, 0}));
    }

private:
    QSize m_size;
    qreal m_ratio = 1;
};

QTEST_MAIN(ScreenPlaceTest)
#include "ScreenPlaceTest.moc"
