// SPDX-License-Identifier: MIT
#include "journal/DayFile.h"

#include "support/TimeZone.h"

#include <QFile>
#include <QLocale>
#include <QTest>
#include <QTimeZone>

using namespace Qt::StringLiterals;

class DayFileTest final : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_zone = std::make_unique<TimeZone>("Europe/Berlin"); }
    void cleanup() { m_zone.reset(); }

    void parts_areAsDescribed()
    {
        const DayFile file(QDateTime(QDate(2026, 11, 15), QTime(8, 5), QTimeZone::utc()));
        QCOMPARE(file.name(), u"2026-11-15.md"_s);
        QCOMPARE(file.header(), "# 2026-11-15\n\n");
        QCOMPARE(file.entry(u"Finished the report."_s), "## 09:05\nFinished the report.\n");
    }

    void day_isTheLocalOne()
    {
        // 23:30 UTC is 00:30 the next day in Berlin.
        const DayFile file(QDateTime(QDate(2026, 11, 15), QTime(23, 30), QTimeZone::utc()));
        QCOMPARE(file.name(), u"2026-11-16.md"_s);
        QCOMPARE(file.entry(u"x"_s), "## 00:30\nx\n");
    }

    void zone_isTheOneInForceWhenMade()
    {
        const QDateTime openedAt(QDate(2026, 11, 15), QTime(14, 30), QTimeZone::utc());
        QCOMPARE(DayFile(openedAt).entry(u"x"_s), "## 15:30\nx\n");
        TimeZone::use("Asia/Tokyo");
        QCOMPARE(DayFile(openedAt).entry(u"x"_s), "## 23:30\nx\n");
        TimeZone::use("Pacific/Auckland");
        QCOMPARE(DayFile(openedAt).name(), u"2026-11-16.md"_s);
    }

    void daylightSaving_isRead()
    {
        const auto time = [](QTime utc, int month, int day) {
            return DayFile(QDateTime(QDate(2026, month, day), utc, QTimeZone::utc())).entry(u"x"_s);
        };
        QCOMPARE(time(QTime(0, 59), 3, 29), "## 01:59\nx\n");
        QCOMPARE(time(QTime(1, 0), 3, 29), "## 03:00\nx\n");
        QCOMPARE(time(QTime(0, 59), 10, 25), "## 02:59\nx\n");
        QCOMPARE(time(QTime(1, 0), 10, 25), "## 02:00\nx\n");
    }

    void digits_areAsciiWhateverTheLocale()
    {
        const QLocale before;
        QLocale::setDefault(QLocale(QLocale::Arabic, QLocale::Egypt));
        const DayFile file(QDateTime(QDate(2026, 11, 15), QTime(8, 5), QTimeZone::utc()));
        QLocale::setDefault(before);
        QCOMPARE(file.header(), "# 2026-11-15\n\n");
        QCOMPARE(file.entry(u"x"_s), "## 09:05\nx\n");
    }

    void note_isWrittenAsItIs()
    {
        const DayFile file(QDateTime(QDate(2026, 11, 15), QTime(8, 5), QTimeZone::utc()));
        const QString note
            = u"# not a heading\n\n\t- tab\u00A0and no-break space\n> 👩‍👩‍👧 e\u0301"_s;
        QCOMPARE(file.entry(note), "## 09:05\n" + note.toUtf8() + "\n");
    }

    void documentedExample_isWhatIsWritten()
    {
        QFile page(QStringLiteral(TOVLA_SOURCE_DIR "/docs/journal-format.md"));
        QVERIFY(page.open(QIODevice::ReadOnly));
        const DayFile morning(QDateTime(QDate(2026, 11, 15), QTime(8, 5), QTimeZone::utc()));
        const DayFile afternoon(QDateTime(QDate(2026, 11, 15), QTime(13, 30), QTimeZone::utc()));
        const QByteArray first = morning.header() + morning.entry(u"Finished the report."_s);
        const QByteArray both
            = first + '\n' + afternoon.entry(u"Long walk.\n\nFelt better after."_s);
        QCOMPARE(first.size(), 44);
        QCOMPARE(both.size(), 85);
        QVERIFY(page.readAll().contains("```markdown\n" + both + "```\n"));
    }

private:
    std::unique_ptr<TimeZone> m_zone;
};

QTEST_GUILESS_MAIN(DayFileTest)
#include "DayFileTest.moc"
