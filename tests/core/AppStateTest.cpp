// SPDX-License-Identifier: MIT
#include "core/StateObserver.h"
#include "support/AppStateForTests.h"

#include <QSignalSpy>
#include <QTest>

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
        QCOMPARE(state->soundName(), u"Purr"_qs);
        QVERIFY(!state->nextPromptDate());
        QVERIFY(desktop.stored.isEmpty());
        QCOMPARE(desktop.timersMade, 0);
    }

    void storedInterval_data()
    {
        QTest::addColumn<QString>("stored");
        QTest::addColumn<qint64>("loaded");
        QTest::newRow("zero") << u"0"_qs << 60LL;
        QTest::newRow("negative") << u"-5"_qs << 60LL;
        QTest::newRow("large") << u"100000"_qs << 100000LL;
        QTest::newRow("one") << u"1"_qs << 1LL;
    }

    void storedInterval()
    {
        QFETCH(QString, stored);
        TestDesktop desktop;
        desktop.stored.insert(u"intervalMinutes"_qs, stored);
        AppStateForTests state(desktop);
        QTEST(state->intervalMinutes(), "loaded");
    }

    void storedSound_data()
    {
        QTest::addColumn<QString>("stored");
        QTest::addColumn<QString>("loaded");
        QTest::newRow("lower case") << u"purr"_qs << u"Purr"_qs;
        QTest::newRow("unknown") << u"Beep"_qs << u"Purr"_qs;
        QTest::newRow("known") << u"Submarine"_qs << u"Submarine"_qs;
    }

    void storedSound()
    {
        QFETCH(QString, stored);
        TestDesktop desktop;
        desktop.stored.insert(u"soundName"_qs, stored);
        AppStateForTests state(desktop);
        QTEST(state->soundName(), "loaded");
    }

    void storedTheme_isMatchedExactly()
    {
        for (const auto &[stored, loaded] : {std::pair(u"Dark"_qs, ThemePreference::system),
                                             std::pair(u"sepia"_qs, ThemePreference::system),
                                             std::pair(u"dark"_qs, ThemePreference::dark)}) {
            TestDesktop desktop;
            desktop.stored.insert(u"theme"_qs, stored);
            AppStateForTests state(desktop);
            QCOMPARE(state->theme(), loaded);
        }
    }

    void availableSounds_areTheFourteen()
    {
        QCOMPARE(AppState::availableSounds().join(u' '),
                 u"Basso Blow Bottle Frog Funk Glass Hero Morse Ping Pop Purr Sosumi Submarine "
                 "Tink"_qs);
    }

    void themeAndSound_areStored_andLeaveTheTimerAlone()
    {
        TestDesktop desktop;
        AppStateForTests state(desktop);
        state->setFolderPath(u"/tmp/Journal"_qs);
        const int timers = desktop.timersMade;
        state->setTheme(ThemePreference::light);
        state->setSoundName(u"no such sound"_qs);
        QCOMPARE(desktop.stored.value(u"theme"_qs), u"light"_qs);
        QCOMPARE(desktop.stored.value(u"soundName"_qs), u"no such sound"_qs);
        QCOMPARE(desktop.timersMade, timers);
    }

    void equalInterval_isWrittenAndRestartsTheTimer()
    {
        TestDesktop desktop;
        AppStateForTests state(desktop);
        state->setFolderPath(u"/tmp/Journal"_qs);
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
        state->setFolderPath(u"/tmp/Journal"_qs);
        QVERIFY(desktop.timerInterval);
        state->setFolderPath(QString());
        QCOMPARE(desktop.stored.value(u"folderPath"_qs), QString());
        QVERIFY(desktop.stored.contains(u"folderPath"_qs));
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
        state->setFolderPath(u"/tmp/Journal"_qs);
        QCOMPARE(desktop.timerInterval, std::optional<std::chrono::seconds>(1h));
        desktop.now = QDateTime(day, QTime(10, 0), Qt::UTC);
        state->setIntervalMinutes(30);
        QCOMPARE(state->nextPromptDate(), QDateTime(day, QTime(10, 30), Qt::UTC));
        desktop.now = QDateTime(day, QTime(10, 10), Qt::UTC);
        state->setIntervalMinutes(30);
        QCOMPARE(state->nextPromptDate(), QDateTime(day, QTime(10, 40), Qt::UTC));
        QCOMPARE(desktop.timerInterval, std::optional<std::chrono::seconds>(30min));
    }

    void firing_opensAPrompt_andMovesTheDateOn()
    {
        TestDesktop desktop;
        AppStateForTests state(desktop);
        state->setFolderPath(u"/tmp/Journal"_qs);
        const QDate day(2026, 11, 15);
        desktop.now = QDateTime(day, QTime(11, 0), Qt::UTC);
        desktop.fireTimer();
        QCOMPARE(state->nextPromptDate(), QDateTime(day, QTime(12, 0), Qt::UTC));
        QVERIFY(state.promptWindow()->isVisible());
        QWidget *const first = state.promptWindow();

        desktop.now = QDateTime(day, QTime(12, 0), Qt::UTC);
        desktop.fireTimer();
        QCOMPARE(state->nextPromptDate(), QDateTime(day, QTime(13, 0), Qt::UTC));
        QCOMPARE(state.promptWindow(), first);
        QCOMPARE(desktop.presented.size(), 1);
        QCOMPARE(desktop.timersMade, 1);
    }

    void clockThatIsSet_movesTheDate_byWhatRemains()
    {
        TestDesktop desktop;
        AppStateForTests state(desktop);
        state->setFolderPath(u"/tmp/Journal"_qs);
        const QDate day(2026, 11, 15);
        desktop.timerRemaining = 45min;
        desktop.setClock(QDateTime(day, QTime(20, 0), Qt::UTC));
        QCOMPARE(state->nextPromptDate(), QDateTime(day, QTime(20, 45), Qt::UTC));
        desktop.setClock(QDateTime(day, QTime(3, 0), Qt::UTC));
        QCOMPARE(state->nextPromptDate(), QDateTime(day, QTime(3, 45), Qt::UTC));
        QCOMPARE(desktop.timersMade, 1);
        QVERIFY(!state.promptWindow());
    }

    void clockThatIsSet_changesNothingWithoutATimer()
    {
        TestDesktop desktop;
        AppStateForTests state(desktop);
        desktop.setClock(QDateTime(QDate(2027, 1, 1), QTime(0, 0), Qt::UTC));
        QCOMPARE(state->nextPromptDate(), std::nullopt);
    }

    void writeNow_leavesTheTimerAlone()
    {
        TestDesktop desktop;
        AppStateForTests state(desktop);
        state->setFolderPath(u"/tmp/Journal"_qs);
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
        desktop.stored.insert(u"folderPath"_qs, u"/tmp/Journal"_qs);
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
        state->setSoundName(u"Glass"_qs);
        state->playSelectedSound();
        state->setSoundName(u"no such sound"_qs);
        state->playSelectedSound();
        state->playSelectedSound();
        QCOMPARE(
            desktop.soundLog,
            (QStringList{u"play Purr"_qs, u"stop Purr"_qs, u"play Glass"_qs, u"stop Glass"_qs}));
    }
};

QTEST_MAIN(AppStateTest)
#include "AppStateTest.moc"
