// SPDX-License-Identifier: MIT
#include "platform/linux/kernel/SystemClock.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QSocketNotifier>
#include <QTemporaryDir>
#include <QTest>

#include <memory>
#include <poll.h>
#include <sys/timex.h>
#include <vector>

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

    void replacedZone_isNoticed_everyTime()
    {
        const SystemClock clock(m_link);
        QSignalSpy zoneChanged(&clock, &Clock::zoneChanged);
        for (const auto &zone : {u"Asia/Tokyo"_s, u"America/Lima"_s}) {
            zoneChanged.clear();
            link(zone, m_link + u".new"_s);
            QVERIFY(std::rename(QFile::encodeName(m_link + u".new"_s).constData(),
                                QFile::encodeName(m_link).constData())
                    == 0);
            QTRY_VERIFY(!zoneChanged.isEmpty());
        }
    }

    void zoneThatIsMissingForAMoment_isNoticed()
    {
        const SystemClock clock(m_link);
        QSignalSpy zoneChanged(&clock, &Clock::zoneChanged);
        for (const auto &zone : {u"Asia/Tokyo"_s, u"America/Lima"_s}) {
            zoneChanged.clear();
            QVERIFY(QFile::remove(m_link));
            QTRY_VERIFY(!zoneChanged.isEmpty());
            zoneChanged.clear();
            link(zone, m_link);
            QTRY_VERIFY(!zoneChanged.isEmpty());
        }
    }

    void zoneThatIsMovedAway_isNoticed()
    {
        const SystemClock clock(m_link);
        QSignalSpy zoneChanged(&clock, &Clock::zoneChanged);
        QVERIFY(QFile::rename(m_link, m_link + u".old"_s));
        QTRY_VERIFY(!zoneChanged.isEmpty());
    }

    void zoneThatIsAFile_isNoticedWhenItIsWritten()
    {
        QVERIFY(QFile::remove(m_link));
        write(m_link);
        const SystemClock clock(m_link);
        QSignalSpy zoneChanged(&clock, &Clock::zoneChanged);
        write(m_link);
        QTRY_VERIFY(!zoneChanged.isEmpty());
    }

    void otherFilesBesideTheZone_wakeNobody()
    {
        const SystemClock clock(m_link);
        const QSignalSpy zoneChanged(&clock, &Clock::zoneChanged);
        write(m_dir->filePath(u"other"_s));
        QVERIFY(QFile::rename(m_dir->filePath(u"other"_s), m_dir->filePath(u"another"_s)));
        QVERIFY(QFile::remove(m_dir->filePath(u"another"_s)));
        // The kernel queues events immediately, so any event would already be readable.
        QVERIFY(!isReadable(&clock));
        QCoreApplication::processEvents();
        QVERIFY(zoneChanged.isEmpty());
    }

    void otherFilesBesideAMissingZone_areNoNews()
    {
        QVERIFY(QFile::remove(m_link));
        const SystemClock clock(m_link);
        QSignalSpy zoneChanged(&clock, &Clock::zoneChanged);
        write(m_dir->filePath(u"other"_s));
        QCoreApplication::processEvents();
        QVERIFY(zoneChanged.isEmpty());
        link(u"Asia/Tokyo"_s, m_link);
        QTRY_VERIFY(!zoneChanged.isEmpty());
    }

private slots:
    void init()
    {
        m_dir = std::make_unique<QTemporaryDir>();
        m_link = m_dir->filePath(u"localtime"_s);
        link(u"Europe/Berlin"_s, m_link);
    }

private:
    /// A change that only the kernel notices.
    [[nodiscard]] static bool setTheClockByANanosecond()
    {
        timex change{};
        change.modes = ADJ_SETOFFSET | ADJ_NANO;
        change.time.tv_usec = 1; // in nanoseconds in this mode
        return adjtimex(&change) >= 0;
    }

    /// Whether the object's descriptors would wake a sleeping program.
    [[nodiscard]] static bool isReadable(const QObject *object)
    {
        std::vector<pollfd> descriptors;
        for (const auto *const notifier : object->findChildren<QSocketNotifier *>()) {
            descriptors.push_back({int(notifier->socket()), POLLIN, 0});
        }
        return poll(descriptors.data(), descriptors.size(), 0) > 0;
    }

    static void link(const QString &zone, const QString &path)
    {
        QVERIFY(QFile::link(u"/usr/share/zoneinfo/"_s + zone, path));
    }

    static void write(const QString &path)
    {
        QFile file(path);
        QVERIFY(file.open(QFile::WriteOnly));
        QVERIFY(file.write("TZif2") > 0);
    }

    std::unique_ptr<QTemporaryDir> m_dir;
    QString m_link;
};

QTEST_GUILESS_MAIN(SystemClockTest)
#include "SystemClockTest.moc"
