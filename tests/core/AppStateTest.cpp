// SPDX-License-Identifier: MIT
#include "core/StateObserver.h"
#include "support/AppStateForTests.h"

#include <QSignalSpy>
#include <QTest>
#include <QTimeZone>

using namespace Qt::StringLiterals;

using namespace std::chrono_literals;

class AppStateTest final : public QObject
{
    Q_OBJECT

private slots:
    void emptyStore_givesDefaults_andStaysEmpty()
    {
        TestDesktop desktop;
        AppStateForTests state(desktop);
        QCOMPARE(state->folderPath(), QString());
        QCOMPARE(state->intervalMinutes(), 60);
        QCOMPARE(state->theme(), ThemePreference::system);
        QCOMPARE(state->soundName(), u"Purr"_s);
        QVERIFY(!state->nextPromptDate());
        QVERIFY(desktop.stored.isEmpty());
        QCOMPARE(desktop.timersMade, 0);
    }

    void storedInterval_data()
    {
        QTest::addColumn<QString>("stored");
        QTest::addColumn<qint64>("loaded");
        QTest::newRow("zero") << u"0"_s << 60LL;
        QTest::newRow("negative") << u"-5"_s << 60LL;
        QTest::newRow("large") << u"100000"_s << 100000LL;
        QTest::newRow("one") << u"1"_s << 1LL;
    }

    void storedInterval()
    {
        QFETCH(QString, stored);
        TestDesktop desktop;
        desktop.stored.insert(u"intervalMinutes"_s, stored);
        AppStateForTests state(desktop);
        QTEST(state->intervalMinutes(), "loaded");
    }

    void storedSound_data()
    {
        QTest::addColumn<QString>("stored");
        QTest::addColumn<QString>("loaded");
        QTest::newRow("lower case") << u"purr"_s << u"Purr"_s;
        QTest::newRow("unknown") << u"Beep"_s << u"Purr"_s;
        QTest::newRow("known") << u"Submarine"_s << u"Submarine"_s;
    }

    void storedSound()
    {
        QFETCH(QString, stored);
        TestDesktop desktop;
        desktop.stored.insert(u"soundName"_s, stored);
        AppStateForTests state(desktop);
        QTEST(state->soundName(), "loaded");
    }

    void storedTheme_isMatchedExactly()
    {
        for (const auto &[stored, loaded] : {std::pair(u"Dark"_s, ThemePreference::system),
                                             std::pair(u"sepia"_s, ThemePreference::system),
                                             std::pair(u"dark"_s, ThemePreference::dark)}) {
            TestDesktop desktop;
            desktop.stored.insert(u"theme"_s, stored);
            AppStateForTests state(desktop);
            QCOMPARE(state->theme(), loaded);
        }
    }

    void availableSounds_areTheFourteen()
    {
        QCOMPARE(AppState::availableSounds().join(u' '),
                 u"Basso Blow Bottle Frog Funk Glass Hero Morse Ping Pop Purr Sosumi Submarine "
                 "Tink"_s);
    }

    void themeAndSound_areStored_andLeaveTheTimerAlone()
    {
        TestDesktop desktop;
        AppStateForTests state(desktop);
        state->setFolderPath(u"/tmp/Journal"_s);
        const int timers = desktop.timersMade;
        state->setTheme(ThemePreference::light);
        state->setSoundName(u"no such sound"_s);
        QCOMPARE(desktop.stored.value(u"theme"_s), u"light"_s);
        QCOMPARE(desktop.stored.value(u"soundName"_s), u"no such sound"_s);
        QCOMPARE(desktop.timersMade, timers);
    }

    void intervalOutOfRange_isStoredAsGiven()
    {
        TestDesktop desktop;
        AppStateForTests state(desktop);
        state->setIntervalMinutes(5000);
        QCOMPARE(state->intervalMinutes(), 5000);
        QCOMPARE(desktop.stored.value(u"intervalMinutes"_s), u"5000"_s);
    }

    void equalInterval_isWrittenAndRestartsTheTimer()
    {
        TestDesktop desktop;
        AppStateForTests state(desktop);
        state->setFolderPath(u"/tmp/Journal"_s);
        const int timers = desktop.timersMade;
        const int writes = desktop.writes;
        state->setIntervalMinutes(60);
        QCOMPARE(desktop.writes, writes + 1);
        QCOMPARE(desktop.timersMade, timers + 1);
    }

    void emptyFolder_isStored_andStopsTheTimer()
    {
        TestDesktop desktop;
        AppStateForTests state(desktop);
        state->setFolderPath(u"/tmp/Journal"_s);
        QVERIFY(desktop.timerInterval);
        state->setFolderPath(QString());
        QCOMPARE(desktop.stored.value(u"folderPath"_s), QString());
        QVERIFY(desktop.stored.contains(u"folderPath"_s));
        QVERIFY(!desktop.timerInterval);
        QVERIFY(!state->nextPromptDate());
    }

    void willChange_comesBeforeTheNewValue()
    {
        TestDesktop desktop;
        AppStateForTests state(desktop);
        QList<qint64> seen;
        connect(&*state, &AppState::willChange, this,
                [&] { seen.append(state->intervalMinutes()); });
        state->setIntervalMinutes(30);
        QCOMPARE(seen.constFirst(), 60);
        QCOMPARE(state->intervalMinutes(), 30);
    }

    void willChange_isForEverySetting()
    {
        TestDesktop desktop;
        AppStateForTests state(desktop);
        const QSignalSpy announced(&*state, &AppState::willChange);
        state->setTheme(ThemePreference::dark);
        QCOMPARE(announced.size(), 1);
        state->setSoundName(u"Glass"_s);
        QCOMPARE(announced.size(), 2);
        // The next two also move the next prompt.
        state->setIntervalMinutes(30);
        QCOMPARE(announced.size(), 4);
        state->setFolderPath(u"/tmp/Journal"_s);
        QCOMPARE(announced.size(), 6);
    }

    void timers_neverRunBesideEachOther()
    {
        TestDesktop desktop;
        AppStateForTests state(desktop);
        state->setFolderPath(u"/tmp/Journal"_s);
        state->setIntervalMinutes(30);
        state->restartTimer();
        QCOMPARE(desktop.timersMade, 3);
        QCOMPARE(desktop.mostTimersAtOnce, 1);
    }

    void observer_refreshesOncePerTurn_withTheLastValue()
    {
        TestDesktop desktop;
        AppStateForTests state(desktop);
        QObject view;
        QList<qint64> seen;
        const StateObserver observer(*state, &view, [&] { seen.append(state->intervalMinutes()); });
        state->setIntervalMinutes(30);
        state->setIntervalMinutes(45);
        state->setTheme(ThemePreference::dark);
        QVERIFY(seen.isEmpty());
        QTRY_COMPARE(seen, QList<qint64>{45});
        QCoreApplication::processEvents();
        QCOMPARE(seen.size(), 1);
    }

    void restartTimer_withoutFolder_runsNone()
    {
        TestDesktop desktop;
        AppStateForTests state(desktop);
        state->restartTimer();
        QVERIFY(!desktop.timerInterval);
        QVERIFY(!state->nextPromptDate());
    }

    void interval_movesTheNextPrompt()
    {
        TestDesktop desktop;
        AppStateForTests state(desktop);
        const QDate day(2026, 11, 15);
        state->setFolderPath(u"/tmp/Journal"_s);
        QCOMPARE(desktop.timerInterval, std::optional<std::chrono::seconds>(1h));
        desktop.now = QDateTime(day, QTime(10, 0), QTimeZone::utc());
        state->setIntervalMinutes(30);
        QCOMPARE(state->nextPromptDate(), QDateTime(day, QTime(10, 30), QTimeZone::utc()));
        desktop.now = QDateTime(day, QTime(10, 10), QTimeZone::utc());
        state->setIntervalMinutes(30);
        QCOMPARE(state->nextPromptDate(), QDateTime(day, QTime(10, 40), QTimeZone::utc()));
        QCOMPARE(desktop.timerInterval, std::optional<std::chrono::seconds>(30min));
    }

    void firing_opensAPrompt_andMovesTheDateOn()
    {
        TestDesktop desktop;
        AppStateForTests state(desktop);
        state->setFolderPath(u"/tmp/Journal"_s);
        const QDate day(2026, 11, 15);
        desktop.now = QDateTime(day, QTime(11, 0), QTimeZone::utc());
        desktop.fireTimer();
        QCOMPARE(state->nextPromptDate(), QDateTime(day, QTime(12, 0), QTimeZone::utc()));
        QVERIFY(state.promptWindow()->isVisible());
        QWidget *const first = state.promptWindow();

        desktop.now = QDateTime(day, QTime(12, 0), QTimeZone::utc());
        desktop.fireTimer();
        QCOMPARE(state->nextPromptDate(), QDateTime(day, QTime(13, 0), QTimeZone::utc()));
        QCOMPARE(state.promptWindow(), first);
        QCOMPARE(desktop.presented.size(), 1);
        QCOMPARE(desktop.timersMade, 1);
    }

    void clockThatIsSet_movesTheDate_byWhatRemains()
    {
        TestDesktop desktop;
        AppStateForTests state(desktop);
        state->setFolderPath(u"/tmp/Journal"_s);
        const QDate day(2026, 11, 15);
        desktop.timerRemaining = 45min;
        desktop.setClock(QDateTime(day, QTime(20, 0), QTimeZone::utc()));
        QCOMPARE(state->nextPromptDate(), QDateTime(day, QTime(20, 45), QTimeZone::utc()));
        desktop.setClock(QDateTime(day, QTime(3, 0), QTimeZone::utc()));
        QCOMPARE(state->nextPromptDate(), QDateTime(day, QTime(3, 45), QTimeZone::utc()));
        QCOMPARE(desktop.timersMade, 1);
        QVERIFY(!state.promptWindow());
    }

    void clockThatIsSet_changesNothingWithoutATimer()
    {
        TestDesktop desktop;
        AppStateForTests state(desktop);
        desktop.setClock(QDateTime(QDate(2027, 1, 1), QTime(0, 0), QTimeZone::utc()));
        QCOMPARE(state->nextPromptDate(), std::nullopt);
    }

    void writeNow_leavesTheTimerAlone()
    {
        TestDesktop desktop;
        AppStateForTests state(desktop);
        state->setFolderPath(u"/tmp/Journal"_s);
        const auto before = state->nextPromptDate();
        desktop.now = desktop.now.addSecs(600);
        state->showPrompt();
        QCOMPARE(state->nextPromptDate(), before);
        QCOMPARE(desktop.timersMade, 1);
    }

    void start_withoutFolder_opensTheSettings()
    {
        TestDesktop desktop;
        AppStateForTests state(desktop);
        state->start();
        QVERIFY(state.settingsWindow());
        QVERIFY(state.settingsWindow()->isVisible());
        QVERIFY(!desktop.timerInterval);
    }

    void start_withFolder_opensNothing()
    {
        TestDesktop desktop;
        desktop.stored.insert(u"folderPath"_s, u"/tmp/Journal"_s);
        AppStateForTests state(desktop);
        state->start();
        QVERIFY(!state.settingsWindow());
        QVERIFY(desktop.presented.isEmpty());
        QCOMPARE(desktop.timerInterval, std::optional<std::chrono::seconds>(1h));
    }

    void sound_newOneStopsTheOld_unknownIsSilent()
    {
        TestDesktop desktop;
        AppStateForTests state(desktop);
        state->playSelectedSound();
        state->setSoundName(u"Glass"_s);
        state->playSelectedSound();
        state->setSoundName(u"no such sound"_s);
        state->playSelectedSound();
        state->playSelectedSound();
        QCOMPARE(desktop.soundLog,
                 (QStringList{u"play Purr"_s, u"stop Purr"_s, u"play Glass"_s, u"stop Glass"_s}));
    }
};

QTEST_MAIN(AppStateTest)
#include "AppStateTest.moc"
