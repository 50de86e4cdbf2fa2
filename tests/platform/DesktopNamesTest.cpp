// SPDX-License-Identifier: MIT
#include "platform/linux/kernel/DesktopNames.h"

#include <QTest>

class DesktopNamesTest final : public QObject
{
    Q_OBJECT

private slots:
    void oneOfTheNames_isEnough_inAnyCase()
    {
        qputenv("XDG_CURRENT_DESKTOP", "ubuntu:GNOME");
        QVERIFY(isDesktop(u"GNOME"));
        QVERIFY(isDesktop(u"gnome"));
        QVERIFY(isDesktop(u"Ubuntu"));
    }

    void partOfAName_isNot()
    {
        qputenv("XDG_CURRENT_DESKTOP", "X-Cinnamon");
        QVERIFY(!isDesktop(u"Cinnamon"));
        QVERIFY(!isDesktop(u"KDE"));
    }

    void withoutASession_itIsNone()
    {
        qunsetenv("XDG_CURRENT_DESKTOP");
        QVERIFY(!isDesktop(u"GNOME"));
    }
};

QTEST_GUILESS_MAIN(DesktopNamesTest)
#include "DesktopNamesTest.moc"
