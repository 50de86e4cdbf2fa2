// SPDX-License-Identifier: MIT
#include "core/PromptSchedule.h"

#include "core/PathText.h"

#include <QTest>
#include <QTimeZone>

using namespace Qt::StringLiterals;

using namespace std::chrono_literals;

class PromptScheduleTest final : public QObject
{
    Q_OBJECT

private slots:
    void interval_isMinutesInSeconds()
    {
        QCOMPARE(PromptSchedule::interval(60), std::optional(3600s));
        // More milliseconds than fit in 32 bits.
        QCOMPARE(PromptSchedule::interval(100000), std::optional(6000000s));
    }

    void interval_largestThatFits_isKept()
    {
        const qint64 largest = std::numeric_limits<qint64>::max() / 60;
        QCOMPARE(PromptSchedule::interval(largest),
                 std::optional(std::chrono::seconds(largest * 60)));
        QVERIFY(!PromptSchedule::interval(largest + 1));
        QVERIFY(!PromptSchedule::interval(std::numeric_limits<qint64>::max()));
        QVERIFY(!PromptSchedule::interval(std::numeric_limits<qint64>::min()));
    }

    void nextPromptDate_isAnInstant()
    {
        const QDateTime now(QDate(2026, 11, 15), QTime(10, 0), QTimeZone::utc());
        const QDateTime next = PromptSchedule::nextPromptDate(now, 30min);
        QCOMPARE(next, QDateTime(QDate(2026, 11, 15), QTime(10, 30), QTimeZone::utc()));
        QCOMPARE(next.offsetFromUtc(), 0);
    }

    void nextPromptDate_beyondAllDates_isTheLastOne()
    {
        const QDateTime now(QDate(2026, 11, 15), QTime(10, 0), QTimeZone::utc());
        const auto longest = *PromptSchedule::interval(std::numeric_limits<qint64>::max() / 60);
        const QDateTime next = PromptSchedule::nextPromptDate(now, longest);
        QVERIFY(next.isValid());
        QCOMPARE(next.toMSecsSinceEpoch(), std::numeric_limits<qint64>::max());
    }

    void statusLine_data()
    {
        QTest::addColumn<qint64>("minutes");
        QTest::addColumn<QString>("folder");
        QTest::addColumn<QString>("line");
        QTest::newRow("usual") << 45LL << u"/Users/ann/Notes/Journal"_s
                               << u"Every 45 min → Journal"_s;
        QTest::newRow("no grouping")
            << 1440LL << u"/a/b/Journal"_s << u"Every 1440 min → Journal"_s;
        QTest::newRow("no singular") << 1LL << u"/Journal"_s << u"Every 1 min → Journal"_s;
        QTest::newRow("negative") << -5LL << u"/Journal"_s << u"Every -5 min → Journal"_s;
        QTest::newRow("no folder") << 1440LL << QString() << u"Every 1440 min → "_s;
    }

    void statusLine()
    {
        QFETCH(qint64, minutes);
        QFETCH(QString, folder);
        QTEST(PromptSchedule::statusLine(minutes, folder), "line");
    }

    void lastPathComponent_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("component");
        QTest::newRow("plain") << u"/home/ann/Journal"_s << u"Journal"_s;
        QTest::newRow("trailing slash") << u"/home/ann/Journal/"_s << u"Journal"_s;
        QTest::newRow("trailing slashes") << u"/home/ann/Journal//"_s << u"Journal"_s;
        QTest::newRow("relative") << u"Journal"_s << u"Journal"_s;
        QTest::newRow("root") << u"/"_s << u"/"_s;
        QTest::newRow("spaces") << u"   "_s << u"   "_s;
        QTest::newRow("marks") << u"/x/my_journal & co"_s << u"my_journal & co"_s;
        QTest::newRow("empty") << QString() << QString();
    }

    void lastPathComponent()
    {
        QFETCH(QString, path);
        QTEST(::lastPathComponent(path), "component");
    }
};

QTEST_GUILESS_MAIN(PromptScheduleTest)
#include "PromptScheduleTest.moc"
