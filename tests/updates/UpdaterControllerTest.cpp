// SPDX-License-Identifier: MIT
#include "updates/UpdaterController.h"

#include "look/Look.h"
#include "support/AppStateForTests.h"
#include "support/EventLoopMeter.h"
#include "updates/UpdateWindow.h"

#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>
#include <QTextEdit>

using namespace Qt::StringLiterals;

namespace
{
AppState *shared = nullptr;
} // namespace

/// The update window with a test package manager.
class UpdaterControllerTest final : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        QCoreApplication::setApplicationVersion(u"1.0"_s);
        m_desktop = std::make_unique<TestDesktop>();
        m_state = std::make_unique<AppStateForTests>(*m_desktop);
        shared = &**m_state;
        m_controller = std::make_unique<UpdaterController>([]() -> AppState & { return *shared; });
        packages().installed = TestPackageManager::tovla(u"1.0"_s);
        packages().newer = TestPackageManager::tovla(u"1.1"_s);
    }
    void cleanup()
    {
        m_controller.reset();
        m_state.reset();
    }

    void check_isStarted_andTheWindowPresented()
    {
        QVERIFY(!m_controller->window());
        check(u"refreshSources"_s);
        QCOMPARE(packages().asked, (QStringList{u"findPackageOf"_s, u"refreshSources"_s}));
        QCOMPARE(m_desktop->presented.constLast(), m_controller->window());
        QVERIFY(progressBar()->isVisible());
        QVERIFY(button(u"&Cancel"_s)->isEnabled());
    }

    void offerThatIsShown_isNotReplacedByANewCheck()
    {
        check(u"refreshSources"_s);
        packages().goOn();
        m_controller->checkForUpdates();
        QCOMPARE(packages().asked.count(u"findPackageOf"_s), 1);
        window()->close();
        m_controller->checkForUpdates();
        QCOMPARE(packages().asked.count(u"findPackageOf"_s), 2);
    }

    void keys_pressTheButtons()
    {
        packages().outcomes[u"install"_s] = {PackageManager::Failure::notAuthorised, {}};
        check();
        QTest::keyClick(window(), Qt::Key_Return);
        QCOMPARE(packages().asked.constLast(), u"install"_s);
        QTest::keyClick(window(), Qt::Key_Escape);
        QVERIFY(!window()->isVisible());
        QVERIFY(m_desktop->alerts.isEmpty());
    }

    void focusedButton_isWhatReturnPresses()
    {
        check();
        QPushButton *const later = button(u"&Remind Me Later"_s);
        later->setFocus();
        QTest::keyClick(later, Qt::Key_Return);
        QVERIFY(!packages().asked.contains(u"simulate"_s));
        QVERIFY(!window()->isVisible());
    }

    void cancelledCheck_closesTheWindow()
    {
        check(u"refreshSources"_s);
        QTest::keyClick(window(), Qt::Key_Escape);
        QVERIFY(packages().asked.contains(u"forget"_s));
        QVERIFY(!window()->isVisible());
    }

    void outcomeOfAnInstallation_bringsTheClosedWindowBack()
    {
        check(u"install"_s);
        install();
        QVERIFY(!button(u"&Cancel"_s)->isEnabled());
        window()->close();
        QVERIFY(!window()->isVisible());
        packages().goOn();
        QVERIFY(window()->isVisible());
        QVERIFY(button(u"&Restart Now"_s)->isVisible());
    }

    void installationThatIsCancelled_leavesTheWindowClosed()
    {
        packages().outcomes[u"install"_s] = {PackageManager::Failure::cancelled, {}};
        check(u"install"_s);
        install();
        window()->close();
        packages().goOn();
        QVERIFY(!window()->isVisible());
    }

    void mnemonics_areUnderlinedWhileAltIsHeld()
    {
        check();
        const auto picture = [this] { return button(u"&Remind Me Later"_s)->grab().toImage(); };
        const QImage plain = picture();
        QTest::keyPress(window(), Qt::Key_Alt);
        QVERIFY(picture() != plain);
        QTest::keyRelease(window(), Qt::Key_Alt);
        QCOMPARE(picture(), plain);
    }

    void anyVersionAndPackages_leaveTheWindowOnTheScreen()
    {
        check();
        const int width = window()->width();
        window()->close();
        packages().newer = TestPackageManager::tovla(u"9"_s.repeated(500));
        packages().notes = u"word"_s.repeated(2000);
        for (int i = 0; i < 500; ++i) {
            packages().changes.append({u"lib%1"_s.arg(i) + u"lib"_s.repeated(70)});
        }
        check();
        install();
        QVERIFY(button(u"&Install Update"_s)->isVisible());
        QTRY_VERIFY(window()->height() > 200);
        QCOMPARE(window()->width(), width);
        QVERIFY2(window()->height() < 560, qPrintable(QString::number(window()->height())));
    }

    void download_isDescribedAsItGoesOn()
    {
        using Step = PackageManager::Progress::Step;
        check(u"install"_s);
        install();
        packages().tell({.step = Step::downloading, .remainingSize = 760'000});
        packages().tell({.step = Step::downloading, .remainingSize = 250'000});
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
        check();
        install();
        QTest::keyClick(window(), Qt::Key_Return);
        QCOMPARE(m_desktop->alerts.constLast().informativeText,
                 u"The new version will be available next time."_s);
    }

    void restart_waitsForTheNote_howeverItEnds()
    {
        check();
        install();
        (*m_state)->showPrompt();
        QTest::keyClick(window(), Qt::Key_Return);
        QCoreApplication::processEvents();
        QCOMPARE(m_desktop->restarts, 0);
        m_state->promptWindow()->close(); // like its close button
        QTRY_COMPARE(m_desktop->restarts, 1);
    }

    void restart_neverComesUnderAPromptThatIsSeen()
    {
        check();
        install();
        (*m_state)->showPrompt();
        QTest::keyClick(window(), Qt::Key_Return);
        m_state->promptWindow()->close();
        (*m_state)->showPrompt(); // before the restart can happen
        QCoreApplication::processEvents();
        QCOMPARE(m_desktop->restarts, 0);
        m_state->promptWindow()->close();
        QTRY_COMPARE(m_desktop->restarts, 1);
    }

    void textsOfOthers_arePlain_andReadOnly()
    {
        packages().notes = u"<img src='http://example.org'> <b>bold</b>"_s;
        check();
        const auto *const notes = window()->findChild<QTextEdit *>();
        QVERIFY(notes->isVisible());
        QVERIFY(notes->isReadOnly());
        QCOMPARE(notes->toPlainText(), packages().notes);
    }

    void focusOnTheNotes_isSeen()
    {
        packages().notes = u"- New bells."_s;
        check();
        QVERIFY(QTest::qWaitForWindowActive(window()));
        auto *const notes = window()->findChild<QTextEdit *>();
        const QColor ring = notes->palette().color(Look::focusRingRole);
        QVERIFY(colorBeside(*notes) != ring);
        notes->setFocus(Qt::TabFocusReason);
        QCOMPARE(colorBeside(*notes), ring);
    }

    void details_areSeenOnRequestOnly()
    {
        const QString details = u"what the package manager says"_s;
        packages().outcomes[u"findNewerVersion"_s] = {PackageManager::Failure::other, details};
        check();
        const auto boxes = window()->findChildren<QTextEdit *>();
        QVERIFY(!boxes.at(0)->isVisible() && !boxes.at(1)->isVisible());
        QTest::mouseClick(button(u"&Details"_s), Qt::LeftButton);
        QVERIFY(boxes.at(1)->isVisible());
        QCOMPARE(boxes.at(1)->toPlainText(), details);
    }

    void window_followsTheSystem()
    {
        packages().newer.reset();
        check();
        const auto background = [this] { return window()->grab().toImage().pixelColor(3, 3); };
        QCOMPARE(background(), QColor(0xECECEC));
        (*m_state)->setTheme(ThemePreference::dark);
        m_desktop->setColorScheme(ColorScheme::Dark);
        QCOMPARE(background(), QColor(0x323232));
    }

    void longestTexts_keepTheEventLoopFree()
    {
        packages().notes = u"- All work and no play.\n"_s.repeated(900);
        check(u"readReleaseNotes"_s);
        QVERIFY(QTest::qWaitForWindowExposed(window()));
        EventLoopMeter meter;
        meter.start();
        QMetaObject::invokeMethod(
            &packages(), [this] { packages().goOn(); }, Qt::QueuedConnection);
        QTRY_VERIFY(window()->findChild<QTextEdit *>()->isVisible());
        // After further iterations, the one that lays out and paints the text is certainly over.
        const int turns = meter.turns();
        QTRY_VERIFY(meter.turns() > turns + 3);
        QVERIFY2(meter.longestTurn() < EventLoopMeter::frame,
                 qPrintable(QString::number(meter.longestTurn().count())));
    }

private:
    [[nodiscard]] TestPackageManager &packages() const { return *m_desktop->packageManager; }
    /// Checks until @p heldAt, or to the end.
    void check(const QString &heldAt = {})
    {
        packages().heldAt = heldAt;
        m_controller->checkForUpdates();
    }
    void install() { QTest::keyClick(window(), Qt::Key_Return); }
    [[nodiscard]] UpdateWindow *window() const { return m_controller->window(); }
    /// Just outside of the text's face, where the ring of the focused control is.
    [[nodiscard]] QColor colorBeside(const QWidget &text) const
    {
        const QPoint place = text.mapTo(window(), QPoint(1, text.height() / 2));
        return window()->grab().toImage().pixelColor(place);
    }
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
