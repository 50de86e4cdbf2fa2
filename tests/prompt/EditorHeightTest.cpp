// SPDX-License-Identifier: MIT
#include "prompt/EditorHeight.h"

#include <QTest>

class EditorHeightTest final : public QObject
{
    Q_OBJECT

private slots:
    void forText_data()
    {
        QTest::addColumn<double>("text");
        QTest::addColumn<double>("height");
        QTest::newRow("nothing") << 0.0 << 52.0;
        QTest::newRow("small font") << 19.9 << 52.0;
        QTest::newRow("rounded up") << 21.1 << 54.0;
        QTest::newRow("whole") << 22.0 << 54.0;
        QTest::newRow("just under the cap") << 287.2 << 320.0;
        QTest::newRow("cap") << 288.0 << 320.0;
        QTest::newRow("long") << 1e9 << 320.0;
    }

    void forText()
    {
        QFETCH(double, text);
        QTEST(EditorHeight::forText(text), "height");
    }

    void deadBand()
    {
        QVERIFY(!EditorHeight::differs(54, 54));
        QVERIFY(!EditorHeight::differs(54.5, 54));
        QVERIFY(!EditorHeight::differs(53.5, 54));
        QVERIFY(EditorHeight::differs(54.6, 54));
        QVERIFY(EditorHeight::differs(53.4, 54));
    }
};

QTEST_GUILESS_MAIN(EditorHeightTest)
#include "EditorHeightTest.moc"
