// SPDX-License-Identifier: MIT
#include "settings/IntervalText.h"

#include <QTest>

using namespace Qt::StringLiterals;

class IntervalTextTest final : public QObject
{
    Q_OBJECT

private slots:
    void text_isGroupedAsTheLocaleDoes()
    {
        QCOMPARE(IntervalText::text(1440, QLocale(u"en_US"_s)), u"1,440"_s);
        QCOMPARE(IntervalText::text(1440, QLocale(u"de_DE"_s)), u"1.440"_s);
        QCOMPARE(IntervalText::text(1440, QLocale(u"es_ES"_s)), u"1440"_s);
    }

    void parsed_data()
    {
        QTest::addColumn<QString>("locale");
        QTest::addColumn<QString>("text");
        QTest::addColumn<qint64>("minutes"); // 0 for none
        QTest::newRow("plain") << u"en_US"_s << u"45"_s << 45LL;
        QTest::newRow("blanks") << u"en_US"_s << u" 45 "_s << 45LL;
        QTest::newRow("grouped") << u"en_US"_s << u"1,440"_s << 1440LL;
        QTest::newRow("grouped German") << u"de_DE"_s << u"1.440"_s << 1440LL;
        QTest::newRow("plain German") << u"de_DE"_s << u"1440"_s << 1440LL;
        QTest::newRow("typed space French") << u"fr_FR"_s << u"1 440"_s << 1440LL;
        QTest::newRow("no-break space French") << u"fr_FR"_s << u"1\u00A0440"_s << 1440LL;
        QTest::newRow("negative") << u"en_US"_s << u"-5"_s << -5LL;
        QTest::newRow("letters") << u"en_US"_s << u"often"_s << 0LL;
        QTest::newRow("fraction") << u"en_US"_s << u"2.5"_s << 0LL;
        QTest::newRow("beyond 64 bits") << u"en_US"_s << u"9223372036854775808"_s << 0LL;
        QTest::newRow("NUL inside") << u"en_US"_s << u"12"_s + QChar(QChar::Null) + u"min"_s << 0LL;
        QTest::newRow("NUL at the end") << u"de_DE"_s << u"12"_s + QChar(QChar::Null) << 0LL;
        QTest::newRow("empty") << u"en_US"_s << QString() << 0LL;
    }

    void parsed()
    {
        QFETCH(QString, locale);
        QFETCH(QString, text);
        QFETCH(qint64, minutes);
        QCOMPARE(IntervalText::parsed(text, QLocale(locale)).value_or(0), minutes);
    }

    void clamped_isFromOneToADay()
    {
        QCOMPARE(IntervalText::clamped(0), 1);
        QCOMPARE(IntervalText::clamped(-5), 1);
        QCOMPARE(IntervalText::clamped(5000), 1440);
        QCOMPARE(IntervalText::clamped(25), 25);
    }

    void hoursAndMinutes_neverHasSeconds()
    {
        const QTime time(15, 5, 59);
        QCOMPARE(IntervalText::hoursAndMinutes(time, QLocale::c()), u"15:05"_s);
        QCOMPARE(IntervalText::hoursAndMinutes(time, QLocale(u"de_DE"_s)), u"15:05"_s);
        QCOMPARE(IntervalText::hoursAndMinutes(time, QLocale(u"en_US"_s)).left(4), u"3:05"_s);
        QVERIFY(IntervalText::hoursAndMinutes(time, QLocale(u"en_US"_s)).endsWith(u"PM"_s));
        for (const QLocale &locale : QLocale::matchingLocales(
                 QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyTerritory)) {
            QVERIFY2(!IntervalText::hoursAndMinutes(time, locale).contains(locale.toString(59)),
                     qPrintable(locale.name()));
        }
    }
};

QTEST_GUILESS_MAIN(IntervalTextTest)
#include "IntervalTextTest.moc"
