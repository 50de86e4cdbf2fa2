// SPDX-License-Identifier: MIT
#include "settings/Labels.h"
#include "settings/SettingRow.h"
#include "settings/SettingsView.h"
#include "support/AppStateForTests.h"

#include <QLabel>
#include <QPushButton>
#include <QTest>

class SettingsWindowTest final : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_desktop = std::make_unique<TestDesktop>();
        m_state = std::make_unique<AppStateForTests>(*m_desktop);
        (*m_state)->showSettings();
        QVERIFY(QTest::qWaitForWindowActive(window()));
    }

    void cleanup() { m_state.reset(); }

    void window_isOne_andKeepsItsPlace()
    {
        QWidget *const first = window();
        QCOMPARE(first->windowTitle(), u"Tovla Settings"_qs);
        first->move(17, 19);
        (*m_state)->showSettings();
        QCOMPARE(window(), first);
        QTest::keyClick(first, Qt::Key_W, Qt::ControlModifier);
        QVERIFY(!first->isVisible());
        (*m_state)->showSettings();
        QCOMPARE(window(), first);
        QVERIFY(first->isVisible());
        QCOMPARE(first->pos(), QPoint(17, 19));
        QCOMPARE(m_desktop->presented.size(), 3);
    }

    void window_isNeitherResizableNorMinimisable()
    {
        QCOMPARE(window()->minimumSize(), window()->maximumSize());
        const Qt::WindowFlags flags = window()->windowFlags();
        QVERIFY(flags.testFlag(Qt::WindowCloseButtonHint));
        QVERIFY(!flags.testFlag(Qt::WindowMinimizeButtonHint));
        QVERIFY(!flags.testFlag(Qt::WindowMaximizeButtonHint));
    }

    void content_is440Wide_andItsRows392()
    {
        QCOMPARE(window()->width(), 440);
        for (const SettingRow *const row : window()->findChildren<SettingRow *>()) {
            QCOMPARE(row->width(), 392);
        }
    }

    void tile_isAtTheTopOfItsRow()
    {
        const auto *tile = window()->findChild<IconTile *>();
        QCOMPARE(tile->size(), QSize(34, 34));
        QCOMPARE(tile->pos(), QPoint(0, 15));
    }

    void unknownSymbol_leavesAnEmptyTile()
    {
        IconTile unknown(u"no.such.symbol"_qs, Tints::blue, nullptr);
        const QImage image = unknown.grab().toImage();
        QVERIFY(image.pixelColor(17, 17).blue() == 255);
        QCOMPARE(image.pixelColor(17, 17), image.pixelColor(5, 17));
    }

    void withoutFolder_onlyThatIsSaid()
    {
        QVERIFY(label(u"No folder selected"_qs)->isVisible());
        QVERIFY(!path()->isVisible());
    }

    void chosenFolder_showsNameAndPath()
    {
        m_desktop->chosenFolder = u"/home/ann/my_journal & co/"_qs;
        QTest::mouseClick(button(), Qt::LeftButton);
        QCOMPARE(m_desktop->chooserPrompt, u"Choose"_qs);
        QCOMPARE((*m_state)->folderPath(), m_desktop->chosenFolder);
        QTRY_VERIFY(path()->isVisible());
        QCOMPARE(path()->text(), m_desktop->chosenFolder);
        QVERIFY(label(u"my_journal & co"_qs)->isVisible());
        QVERIFY(!label(u"No folder selected"_qs)->isVisible());
    }

    void sameFolderAgain_restartsTheTimer()
    {
        m_desktop->chosenFolder = u"/home/ann/Journal"_qs;
        QTest::mouseClick(button(), Qt::LeftButton);
        const int timers = m_desktop->timersMade;
        QTest::mouseClick(button(), Qt::LeftButton);
        QCOMPARE(m_desktop->timersMade, timers + 1);
    }

    void cancelledChooser_changesNothing()
    {
        const int writes = m_desktop->writes;
        QTest::mouseClick(button(), Qt::LeftButton);
        QCOMPARE(m_desktop->choosersOpened, 1);
        QCOMPARE(m_desktop->writes, writes);
        QCOMPARE((*m_state)->folderPath(), QString());
    }

    void longPath_doesNotWidenTheWindow()
    {
        (*m_state)->setFolderPath(u"/home/ann"_qs + u"/a very long folder name"_qs.repeated(20));
        QTRY_VERIFY(path()->isVisible());
        QCOMPARE(window()->width(), 440);
        QVERIFY(path()->geometry().right() < button()->geometry().left());
    }

    void theme_appliesAtOnce()
    {
        (*m_state)->setTheme(ThemePreference::dark);
        QTRY_COMPARE(backgroundColor(), QColor(0x323232));
        (*m_state)->setTheme(ThemePreference::system);
        QTRY_COMPARE(backgroundColor(), QColor(0xECECEC));
        m_desktop->setColorScheme(ColorScheme::Dark);
        QTRY_COMPARE(backgroundColor(), QColor(0x323232));
    }

private:
    [[nodiscard]] QWidget *window() const { return m_state->settingsWindow(); }
    [[nodiscard]] QPushButton *button() const { return window()->findChild<QPushButton *>(); }
    [[nodiscard]] ElidedLabel *path() const { return window()->findChild<ElidedLabel *>(); }
    [[nodiscard]] QLabel *label(const QString &text) const
    {
        for (QLabel *const each : window()->findChildren<QLabel *>()) {
            if (each->text() == text) {
                return each;
            }
        }
        return nullptr;
    }
    [[nodiscard]] QColor backgroundColor() const
    {
        return window()->grab().toImage().pixelColor(3, 3);
    }

    std::unique_ptr<TestDesktop> m_desktop;
    std::unique_ptr<AppStateForTests> m_state;
};

QTEST_MAIN(SettingsWindowTest)
#include "SettingsWindowTest.moc"
