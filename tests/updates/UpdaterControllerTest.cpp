// SPDX-License-Identifier: MIT
#include "updates/UpdaterController.h"

#include "support/AppStateForTests.h"
#include "support/EventLoopMeter.h"
#include "updates/UpdateWindow.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

using Stage = UpdateState::Stage;

namespace
{
AppState *shared = nullptr;
} // namespace

/// The window of the updates, with updates that only note what is asked of them.
class UpdaterControllerTest final : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_desktop = std::make_unique<TestDesktop>();
        m_state = std::make_unique<AppStateForTests>(*m_desktop);
        shared = &**m_state;
        m_controller = std::make_unique<UpdaterController>([]() -> AppState & { return *shared; });
    }
    void cleanup()
    {
        m_controller.reset();
        m_state.reset();
    }

    void check_isStarted_andTheWindowPresented()
    {
        QVERIFY(!m_controller->window());
        check({.stage = Stage::checking});
        QCOMPARE(m_desktop->updateLog, QStringList{u"check"_s});
        QCOMPARE(m_desktop->presented.constLast(), m_controller->window());
        QVERIFY(progressBar()->isVisible());
        QVERIFY(!button(u"&Cancel"_s)->isEnabled());
    }

    void offerThatIsShown_isNotReplacedByANewCheck()
    {
        check({.stage = Stage::checking});
        m_desktop->setUpdateState({.stage = Stage::available});
        m_controller->checkForUpdates();
        QCOMPARE(m_desktop->updateLog, QStringList{u"check"_s});
        window()->close();
        m_controller->checkForUpdates();
        QCOMPARE(m_desktop->updateLog.filter(u"check"_s).size(), 2);
    }

    void keys_pressTheButtons()
    {
        check({.stage = Stage::available});
        QTest::keyClick(window(), Qt::Key_Return);
        QCOMPARE(m_desktop->updateLog.constLast(), u"install"_s);
        QTest::keyClick(window(), Qt::Key_Escape);
        QVERIFY(!window()->isVisible());
        QVERIFY(!m_desktop->updateLog.contains(u"restart"_s));
    }

    void focusedButton_isWhatReturnPresses()
    {
        check({.stage = Stage::available});
        QPushButton *const later = button(u"&Remind Me Later"_s);
        later->setFocus();
        QTest::keyClick(later, Qt::Key_Return);
        QVERIFY(!m_desktop->updateLog.contains(u"install"_s));
        QVERIFY(!window()->isVisible());
    }

    void cancelledCheck_closesTheWindow()
    {
        UpdateState checking{.stage = Stage::checking};
        checking.canCancel = true;
        check(checking);
        QTest::keyClick(window(), Qt::Key_Escape);
        QCOMPARE(m_desktop->updateLog.constLast(), u"cancel"_s);
        m_desktop->setUpdateState({});
        QVERIFY(!window()->isVisible());
    }

    void outcomeOfAnInstallation_bringsTheClosedWindowBack()
    {
        check({.stage = Stage::installing});
        window()->close();
        QVERIFY(!window()->isVisible());
        m_desktop->setUpdateState({.stage = Stage::updated});
        QVERIFY(window()->isVisible());
        window()->close();
        m_desktop->setUpdateState({});
        QVERIFY(!window()->isVisible());
    }

    void mnemonics_areUnderlinedWhileAltIsHeld()
    {
        check({.stage = Stage::available});
        const auto picture = [this] { return button(u"&Remind Me Later"_s)->grab().toImage(); };
        const QImage plain = picture();
        QTest::keyPress(window(), Qt::Key_Alt);
        QVERIFY(picture() != plain);
        QTest::keyRelease(window(), Qt::Key_Alt);
        QCOMPARE(picture(), plain);
    }

    void anyVersionAndPackages_leaveTheWindowOnTheScreen()
    {
        check({.stage = Stage::available, .version = u"1.1"_s});
        const int width = window()->width();
        m_desktop->setUpdateState({.stage = Stage::available,
                                   .version = u"9"_s.repeated(500),
                                   .releaseNotes = u"word"_s.repeated(2000),
                                   .otherPackages = QStringList(500, u"lib"_s.repeated(70))});
        QTRY_VERIFY(window()->height() > 200);
        QCOMPARE(window()->width(), width);
        QVERIFY2(window()->height() < 560, qPrintable(QString::number(window()->height())));
    }

    void download_isDescribedAsItGoesOn()
    {
        check({.stage = Stage::downloading, .downloadedSize = 0, .downloadSize = 760'000});
        m_desktop->setUpdateState(
            {.stage = Stage::downloading, .downloadedSize = 510'000, .downloadSize = 760'000});
        for (const QLabel *const label : window()->findChildren<QLabel *>()) {
            if (label->text() == u"Downloading update…"_s) {
                QVERIFY2(label->accessibleDescription().startsWith(u"498"_s),
                         qPrintable(label->accessibleDescription()));
                return;
            }
        }
        QFAIL("no such headline");
    }

    void restart_thatCannotBe_isTold()
    {
        m_desktop->canRestart = false;
        check({.stage = Stage::updated});
        QTest::keyClick(window(), Qt::Key_Return);
        QCOMPARE(m_desktop->alerts.constLast().informativeText,
                 u"The new version will be available next time."_s);
    }

    void restart_waitsForTheNote_howeverItEnds()
    {
        check({.stage = Stage::updated});
        (*m_state)->showPrompt();
        QTest::keyClick(window(), Qt::Key_Return);
        QCoreApplication::processEvents();
        QCOMPARE(m_desktop->restarts, 0);
        m_state->promptWindow()->close(); // as its close button does
        QTRY_COMPARE(m_desktop->restarts, 1);
    }

    void restart_neverComesUnderAPromptThatIsSeen()
    {
        check({.stage = Stage::updated});
        (*m_state)->showPrompt();
        QTest::keyClick(window(), Qt::Key_Return);
        m_state->promptWindow()->close();
        (*m_state)->showPrompt(); // before the restart could come
        QCoreApplication::processEvents();
        QCOMPARE(m_desktop->restarts, 0);
        m_state->promptWindow()->close();
        QTRY_COMPARE(m_desktop->restarts, 1);
    }

    void textsOfOthers_arePlain_andReadOnly()
    {
        UpdateState offer{.stage = Stage::available};
        offer.releaseNotes = u"<img src='http://example.org'> <b>bold</b>"_s;
        check(offer);
        const auto *const notes = window()->findChild<QPlainTextEdit *>();
        QVERIFY(notes->isVisible());
        QVERIFY(notes->isReadOnly());
        QCOMPARE(notes->toPlainText(), offer.releaseNotes);
    }

    void details_areSeenOnRequestOnly()
    {
        UpdateState failed{.stage = Stage::failed};
        failed.failure = UpdateState::Failure::notRetrieved;
        failed.details = u"what the engine says"_s;
        check(failed);
        const auto boxes = window()->findChildren<QPlainTextEdit *>();
        QVERIFY(!boxes.at(0)->isVisible() && !boxes.at(1)->isVisible());
        QTest::mouseClick(button(u"&Details"_s), Qt::LeftButton);
        QVERIFY(boxes.at(1)->isVisible());
        QCOMPARE(boxes.at(1)->toPlainText(), failed.details);
    }

    void window_followsTheSystem()
    {
        check({.stage = Stage::upToDate});
        const auto background = [this] { return window()->grab().toImage().pixelColor(3, 3); };
        QCOMPARE(background(), QColor(0xECECEC));
        (*m_state)->setTheme(ThemePreference::dark);
        m_desktop->setColorScheme(ColorScheme::Dark);
        QCOMPARE(background(), QColor(0x323232));
    }

    void longestTexts_keepTheEventLoopFree()
    {
        check({.stage = Stage::checking});
        QVERIFY(QTest::qWaitForWindowExposed(window()));
        EventLoopMeter meter;
        meter.start();
        UpdateState offer{.stage = Stage::available};
        offer.releaseNotes = u"All work and no play.\n"_s.repeated(900);
        QMetaObject::invokeMethod(
            this, [&] { m_desktop->setUpdateState(offer); }, Qt::QueuedConnection);
        QTRY_VERIFY(window()->findChild<QPlainTextEdit *>()->isVisible());
        // The turn that lays out and paints it is over when others have come.
        const int turns = meter.turns();
        QTRY_VERIFY(meter.turns() > turns + 3);
        QVERIFY2(meter.longestTurn() < EventLoopMeter::frame,
                 qPrintable(QString::number(meter.longestTurn().count())));
    }

private:
    void check(const UpdateState &state)
    {
        m_desktop->updateState = state;
        m_controller->checkForUpdates();
    }
    [[nodiscard]] UpdateWindow *window() const { return m_controller->window(); }
    [[nodiscard]] QProgressBar *progressBar() const
    {
        return window()->findChild<QProgressBar *>();
    }
    [[nodiscard]] QPushButton *button(const QString &text) const
    {
        for (auto *const each : window()->findChildren<QPushButton *>()) {
            if (each->text() == text) {
                return each;
            }
        }
        return nullptr;
    }

    std::unique_ptr<TestDesktop> m_desktop;
    std::unique_ptr<AppStateForTests> m_state;
    std::unique_ptr<UpdaterController> m_controller;
};

QTEST_MAIN(UpdaterControllerTest)
#include "UpdaterControllerTest.moc"
