// SPDX-License-Identifier: MIT
#include "platform/linux/sound/CanberraSounds.h"

#include "core/AppState.h"

#include <QTest>

using namespace Qt::StringLiterals;

/// Only looks for files; nothing is played.
class CanberraSoundsTest : public QObject
{
    Q_OBJECT

private slots:
    void everySoundThatCanBeChosen_hasItsFile()
    {
        CanberraSounds sounds;
        for (const QString &name : AppState::availableSounds()) {
            QVERIFY2(soundFilePath(name).endsWith(u"/sounds/tovla/stereo/%1.wav"_s.arg(name)),
                     qPrintable(name));
            QVERIFY2(sounds.soundNamed(name), qPrintable(name));
        }
    }

    void otherNames_areNoSound_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("empty") << QString();
        QTest::newRow("unknown") << u"Bark"_s;
        QTest::newRow("of every desktop's theme") << u"bell"_s;
        QTest::newRow("another case") << u"purr"_s;
        QTest::newRow("a way out of the folder") << u"../stereo/Purr"_s;
        QTest::newRow("cut short") << u"Purr"_s + QChar(QChar::Null);
    }

    void otherNames_areNoSound()
    {
        QFETCH(const QString, name);
        CanberraSounds sounds;
        QVERIFY(!sounds.soundNamed(name));
        QCOMPARE(soundFilePath(name), QString());
    }
};

QTEST_GUILESS_MAIN(CanberraSoundsTest)
#include "CanberraSoundsTest.moc"
