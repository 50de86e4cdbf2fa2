// SPDX-License-Identifier: MIT
#include "prompt/PlainText.h"

#include <QTest>

using namespace Qt::StringLiterals;

class PlainTextTest final : public QObject
{
    Q_OBJECT

private slots:
    void plainText_data()
    {
        QTest::addColumn<QString>("given");
        QTest::addColumn<QString>("plain");
        QTest::newRow("CR LF") << u"a\r\nb\r\n"_s << u"a\nb\n"_s;
        QTest::newRow("CR") << u"a\rb\r"_s << u"a\nb\n"_s;
        QTest::newRow("LF CR") << u"a\n\rb"_s << u"a\n\nb"_s;
        QTest::newRow("separators") << u"a\u2028b\u2029c"_s << u"a\nb\nc"_s;
        QTest::newRow("NUL") << u"a"_s + QChar(0) + u"b"_s << u"a\uFFFDb"_s;
        QTest::newRow("frame marks") << QString(QChar(0xFDD0)) + QChar(0xFDD1) << u"\uFFFD\uFFFD"_s;
        QTest::newRow("lone high") << QString(QChar(0xD83D)) + u'x' << u"\uFFFDx"_s;
        QTest::newRow("lone low") << u'x' + QString(QChar(0xDE00)) << u"x\uFFFD"_s;
        QTest::newRow("swapped") << QString(QChar(0xDE00)) + QChar(0xD83D) << u"\uFFFD\uFFFD"_s;
        QTest::newRow("kept") << u"\t\u00A0\u0085\v\f\uFEFF👩‍👩‍👧e\u0301\u200F"_s
                              << u"\t\u00A0\u0085\v\f\uFEFF👩‍👩‍👧e\u0301\u200F"_s;
        QTest::newRow("empty") << QString() << QString();
    }

    void plainText()
    {
        QFETCH(QString, given);
        QTEST(::plainText(given), "plain");
    }

    void ordinaryText_isNotCopied()
    {
        const QString text = u"a\nb"_s;
        QCOMPARE(::plainText(text).constData(), text.constData());
    }
};

QTEST_GUILESS_MAIN(PlainTextTest)
#include "PlainTextTest.moc"
