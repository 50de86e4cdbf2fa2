// SPDX-License-Identifier: MIT
#include "prompt/PlainText.h"

#include <QTest>

class PlainTextTest final : public QObject
{
    Q_OBJECT

private slots:
    void plainText_data()
    {
        QTest::addColumn<QString>("given");
        QTest::addColumn<QString>("plain");
        QTest::newRow("CR LF") << u"a\r\nb\r\n"_qs << u"a\nb\n"_qs;
        QTest::newRow("CR") << u"a\rb\r"_qs << u"a\nb\n"_qs;
        QTest::newRow("LF CR") << u"a\n\rb"_qs << u"a\n\nb"_qs;
        QTest::newRow("separators") << u"a\u2028b\u2029c"_qs << u"a\nb\nc"_qs;
        QTest::newRow("NUL") << u"a"_qs + QChar(0) + u"b"_qs << u"a\uFFFDb"_qs;
        QTest::newRow("frame marks")
            << QString(QChar(0xFDD0)) + QChar(0xFDD1) << u"\uFFFD\uFFFD"_qs;
        QTest::newRow("lone high") << QString(QChar(0xD83D)) + u'x' << u"\uFFFDx"_qs;
        QTest::newRow("lone low") << u'x' + QString(QChar(0xDE00)) << u"x\uFFFD"_qs;
        QTest::newRow("swapped") << QString(QChar(0xDE00)) + QChar(0xD83D) << u"\uFFFD\uFFFD"_qs;
        QTest::newRow("kept") << u"\t\u00A0\u0085\v\f\uFEFF👩‍👩‍👧e\u0301\u200F"_qs
                              << u"\t\u00A0\u0085\v\f\uFEFF👩‍👩‍👧e\u0301\u200F"_qs;
        QTest::newRow("empty") << QString() << QString();
    }

    void plainText()
    {
        QFETCH(QString, given);
        QTEST(::plainText(given), "plain");
    }

    void ordinaryText_isNotCopied()
    {
        const QString text = u"a\nb"_qs;
        QCOMPARE(::plainText(text).constData(), text.constData());
    }
};

QTEST_GUILESS_MAIN(PlainTextTest)
#include "PlainTextTest.moc"
