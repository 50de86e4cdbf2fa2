// SPDX-License-Identifier: MIT
#include "platform/linux/SystemClock.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <sys/timex.h>

using namespace Qt::StringLiterals;

class SystemClockTest final : public QObject
{
    Q_OBJECT

private slots:
    void now_isInUtc() { QCOMPARE(SystemClock().now().offsetFromUtc(), 0); }

    void setClock_isNoticed_everyTime()
    {
        const SystemClock clock;
        QSignalSpy wasSet(&clock, &Clock::wasSet);
        for (const int times : {1, 2}) {
            if (!setTheClockByANanosecond()) {
                QSKIP("only who may set the clock can see that it is noticed");
            }
            QTRY_COMPARE(wasSet.size(), times);
        }
    }

    void replacedZone_isNoticed()
    {
        const QTemporaryDir dir;
        const QString link = dir.filePath(u"localtime"_s);
        QVERIFY(QFile::link(u"/usr/share/zoneinfo/Europe/Berlin"_s, link));
        const SystemClock clock(link);
        QSignalSpy zoneChanged(&clock, &Clock::zoneChanged);
        QVERIFY(QFile::link(u"/usr/share/zoneinfo/Asia/Tokyo"_s, link + u".new"_s));
        QVERIFY(std::rename(QFile::encodeName(link + u".new"_s), QFile::encodeName(link)) == 0);
        QTRY_VERIFY(!zoneChanged.isEmpty());
    }

private:
    /// Less than anybody can notice but the kernel.
    [[nodiscard]] static bool setTheClockByANanosecond()
    {
        timex change{};
        change.modes = ADJ_SETOFFSET | ADJ_NANO;
        change.time.tv_usec = 1; // nanoseconds, in that mode
        return adjtimex(&change) >= 0;
    }
};

QTEST_GUILESS_MAIN(SystemClockTest)
#include "SystemClockTest.moc"
