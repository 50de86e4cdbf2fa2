// SPDX-License-Identifier: MIT
#include "settings/SettingsView.h"
#include "support/SettingsFixture.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QComboBox>
#include <QHelpEvent>
#include <QRadioButton>
#include <QScreen>
#include <QTextDocument>
#include <QToolTip>

class SettingsWindowTest final : public SettingsFixture
{
    Q_OBJECT

private slots:
    void window_isOne_andKeepsItsPlace()
    {
        QWidget *const first = window();
        QCOMPARE(first->windowTitle(), u"Tovla Settings"_s);
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
            QCOMPARE(row->contentsRect().width(), 392);
        }
    }

    void tile_isAtTheTopOfItsRow()
    {
        const auto *tile = window()->findChild<IconTile *>();
        QCOMPARE(tile->size(), QSize(34, 34));
        const QWidget *const row = tile->parentWidget();
        QCOMPARE(tile->pos() - row->contentsRect().topLeft(), QPoint(0, 15));
    }

    void window_opensInTheMiddleOfTheScreen()
    {
        const QRect free = window()->screen()->availableGeometry();
        // The frame is not known before the window manager has added it.
        const QRect opened(window()->pos(), window()->size());
        const QPoint off = opened.center() - free.center();
        QVERIFY(qAbs(off.x()) <= 1);
        QVERIFY(qAbs(off.y()) <= 1);
    }

    void longDetail_wraps()
    {
        const QString detail = u"word "_s.repeated(40);
        SettingRow row(u"folder"_s, Tints::blue, u"Label"_s, detail, new QWidget, nullptr);
        row.resize(392, row.heightForWidth(392));
        row.show();
        QVERIFY(QTest::qWaitForWindowExposed(&row));
        const auto labels = row.findChildren<QLabel *>();
        const QLabel &shown = *labels.constLast();
        QCOMPARE(shown.text(), detail);
        QVERIFY(shown.height() > 2 * shown.fontMetrics().height());
        QVERIFY(shown.height() >= shown.heightForWidth(shown.width()));
    }

    void unknownSymbol_leavesAnEmptyTile()
    {
        IconTile unknown(u"no.such.symbol"_s, Tints::blue, nullptr);
        const QImage image = unknown.grab().toImage();
        QVERIFY(image.pixelColor(17, 17).blue() == 255);
        QCOMPARE(image.pixelColor(17, 17), image.pixelColor(5, 17));
    }

    void withoutFolder_onlyThatIsSaid()
    {
        QVERIFY(label(u"No folder selected"_s)->isVisible());
        QVERIFY(!path()->isVisible());
    }

    void chosenFolder_showsNameAndPath()
    {
        m_desktop->chosenFolder = u"/home/ann/my_journal & co/"_s;
        QTest::mouseClick(button(), Qt::LeftButton);
        QCOMPARE(m_desktop->chooserPrompt, u"Choose"_s);
        QCOMPARE((*m_state)->folderPath(), m_desktop->chosenFolder);
        QTRY_VERIFY(path()->isVisible());
        QCOMPARE(path()->text(), m_desktop->chosenFolder);
        QVERIFY(label(u"my_journal & co"_s)->isVisible());
        QVERIFY(!label(u"No folder selected"_s)->isVisible());
    }

    void sameFolderAgain_restartsTheTimer()
    {
        m_desktop->chosenFolder = u"/home/ann/Journal"_s;
        QTest::mouseClick(button(), Qt::LeftButton);
        const int timers = m_desktop->timersMade;
        QTest::mouseClick(button(), Qt::LeftButton);
        QCOMPARE(m_desktop->timersMade, timers + 1);
    }

    void folderWhoseNameIsNotUtf8_isRefused()
    {
        m_desktop->chosenFolder = u"/home/ann/caf\uFFFD"_s;
        QTest::mouseClick(button(), Qt::LeftButton);
        QTRY_COMPARE(m_desktop->alerts.size(), 1);
        QVERIFY(m_desktop->alerts.constFirst().informativeText.contains(u"not valid UTF-8"_s));
        QCOMPARE((*m_state)->folderPath(), QString());
        QCOMPARE(m_desktop->writes, 0);
    }

    void cancelledChooser_changesNothing()
    {
        const int writes = m_desktop->writes;
        QTest::mouseClick(button(), Qt::LeftButton);
        QCOMPARE(m_desktop->choosersOpened, 1);
        QCOMPARE(m_desktop->writes, writes);
        QCOMPARE((*m_state)->folderPath(), QString());
    }

    void longNames_doNotWidenTheWindow_andAreElided()
    {
        (*m_state)->setFolderPath(u"/home/ann/"_s + u"a very long folder name "_s.repeated(20));
        QTRY_VERIFY(path()->isVisible());
        QCOMPARE(window()->width(), 440);
        const auto labels = window()->findChildren<ElidedLabel *>();
        QCOMPARE(labels.size(), 2);
        for (const ElidedLabel *const label : labels) {
            QVERIFY(label->isElided());
            // 12, a space of at least 8, and 12 again.
            QCOMPARE(faceOf(*button()).left() - placeOf(*label).right() - 1, 32);
        }
    }

    void shortenedPath_isShownWholeInATooltip()
    {
        const auto point = [this] {
            QHelpEvent event(QEvent::ToolTip, QPoint(3, 3), path()->mapToGlobal(QPoint(3, 3)));
            QCoreApplication::sendEvent(path(), &event);
        };
        (*m_state)->setFolderPath(u"/tmp/Journal"_s);
        QTRY_VERIFY(!path()->isElided());
        point();
        QVERIFY(!QToolTip::isVisible());
        const QString folder = u"/tmp/"_s + u"a<b>&long/"_s.repeated(20) + u"Journal"_s;
        (*m_state)->setFolderPath(folder);
        QTRY_VERIFY(path()->isElided());
        point();
        QTRY_VERIFY(QToolTip::isVisible());
        QTextDocument shown;
        shown.setHtml(QToolTip::text());
        QCOMPARE(shown.toPlainText(), folder);
        const QImage tooltip = path()->findChild<QLabel *>()->grab().toImage();
        const QColor face = path()->palette().color(Look::menuFaceRole);
        QCOMPARE(tooltip.pixelColor(2, 2), face);
        // The rim of the menus, not the toolkit's black frame.
        QVERIFY(tooltip.pixelColor(0, 4) != face);
        QVERIFY(tooltip.pixelColor(0, 4).lightness() > 128);
        QToolTip::hideText();
    }

    void faces_standWhereTheLayoutCounts()
    {
        const QRect field = faceOf(*number());
        const QRect stepper = faceOf(*named<QAbstractButton>(u"Increase"_s)->parentWidget());
        QCOMPARE(field.size(), QSize(56, 22));
        QCOMPARE(stepper.left() - field.right() - 1, 8);
        QCOMPARE(placeOf(*label(u"minutes"_s)).left() - stepper.right() - 1, 8);
        QCOMPARE(faceOf(*window()->findChild<QComboBox *>()).size(), QSize(160, 22));
        for (const QRect &face : {field, faceOf(*window()->findChild<QComboBox *>())}) {
            const SettingRow *const row = rowAt(face);
            const QRect detail = placeOf(*label(row->accessibleDescription()));
            QCOMPARE(face.left(), detail.left());
            QCOMPARE(face.top() - detail.bottom() - 1, 16);
            QCOMPARE(placeOf(*row).bottom() - face.bottom(), 14);
        }
    }

    void radios_standUnderTheirText_24Apart()
    {
        const auto radios = window()->findChildren<QRadioButton *>();
        const QImage picture = window()->grab().toImage();
        const int left = placeOf(*label(u"Choose how Tovla looks"_s)).left();
        int previous = 0;
        for (const QRadioButton *const radio : radios) {
            QVERIFY(radio->height() >= 24);
            const QRect place = placeOf(*radio);
            QCOMPARE(picture.pixelColor(left - 1, place.center().y()), QColor(0xECECEC));
            QVERIFY(picture.pixelColor(left + 1, place.center().y()) != QColor(0xECECEC));
            QVERIFY(previous == 0 || place.center().y() - previous == 24);
            previous = place.center().y();
        }
    }

    void radios_chooseTheTheme()
    {
        const auto radios = window()->findChildren<QRadioButton *>();
        QCOMPARE(radios.size(), 3);
        QVERIFY(radios.at(0)->isChecked());
        QTest::mouseClick(radios.at(2), Qt::LeftButton);
        QCOMPARE((*m_state)->theme(), ThemePreference::dark);
        QTest::keyClick(radios.at(2), Qt::Key_Up);
        QCOMPARE((*m_state)->theme(), ThemePreference::light);
        QCOMPARE(m_desktop->timersMade, 0);
    }

    void popUp_offersTheSounds_andIsSilent_previewPlays()
    {
        auto *const popUp = window()->findChild<QComboBox *>();
        QCOMPARE(popUp->count(), 14);
        QCOMPARE(popUp->currentText(), u"Purr"_s);
        popUp->setFocus();
        QTest::keyClicks(popUp, u"Gl"_s);
        QCOMPARE((*m_state)->soundName(), u"Glass"_s);
        QVERIFY(m_desktop->soundLog.isEmpty());
        const auto buttons = window()->findChildren<QPushButton *>();
        QTest::mouseClick(buttons.constLast(), Qt::LeftButton);
        QCOMPARE(m_desktop->soundLog, QStringList{u"play Glass"_s});
    }

    void mnemonics_pressTheirButtons()
    {
        QTest::keyClick(window(), Qt::Key_P, Qt::AltModifier);
        QTRY_COMPARE(m_desktop->soundLog, QStringList{u"play Purr"_s});
        QTest::keyClick(window(), Qt::Key_D, Qt::AltModifier);
        QTRY_COMPARE((*m_state)->theme(), ThemePreference::dark);
        QTest::keyClick(window(), Qt::Key_C, Qt::AltModifier);
        QTRY_COMPARE(m_desktop->choosersOpened, 1);
    }

    void mnemonics_areUnderlinedWhileAltIsHeld()
    {
        const auto picture = [this] { return button()->grab().toImage(); };
        const QImage plain = picture();
        QTest::keyPress(number(), Qt::Key_Alt);
        QVERIFY(picture() != plain);
        QTest::keyRelease(number(), Qt::Key_Alt);
        QCOMPARE(picture(), plain);
        QTest::keyPress(number(), Qt::Key_Alt);
        QEvent leaving(QEvent::WindowDeactivate);
        QCoreApplication::sendEvent(window(), &leaving);
        QCOMPARE(picture(), plain);
    }

    void popUp_hasItsNameForAScreenReader()
    {
        auto *const popUp = window()->findChild<QComboBox *>();
        const QAccessibleInterface *const accessible = QAccessible::queryAccessibleInterface(popUp);
        QCOMPARE(accessible->role(), QAccessible::ComboBox);
        QCOMPARE(accessible->text(QAccessible::Name), u"Sound"_s);
        QCOMPARE(accessible->text(QAccessible::Value), u"Purr"_s);
        QCOMPARE(accessible->text(QAccessible::Description), u"Purr"_s);
    }

    void popUpsList_isChosenFromWithTheMouse()
    {
        auto *const popUp = window()->findChild<QComboBox *>();
        // For this long after the opening, the toolkit ignores the release of a button.
        QApplication::setDoubleClickInterval(0);
        popUp->showPopup();
        QAbstractItemView *const list = popUp->view();
        QTRY_VERIFY(list->isVisible());
        const QModelIndex glass = list->model()->index(popUp->findText(u"Glass"_s), 0);
        const QPoint place = list->visualRect(glass).center();
        QTest::mouseMove(list->viewport(), place);
        QCoreApplication::processEvents();
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, place);
        QTRY_COMPARE((*m_state)->soundName(), u"Glass"_s);
        QVERIFY(m_desktop->soundLog.isEmpty());
    }

    void changesWhileHidden_areShownAfterwards()
    {
        window()->close();
        (*m_state)->setFolderPath(u"/home/ann/Elsewhere"_s);
        (*m_state)->setIntervalMinutes(25);
        (*m_state)->setTheme(ThemePreference::dark);
        (*m_state)->showSettings();
        QTRY_VERIFY(label(u"Elsewhere"_s));
        QVERIFY(label(u"Elsewhere"_s)->isVisible());
        QCOMPARE(path()->text(), u"/home/ann/Elsewhere"_s);
        QCOMPARE(number()->text(), u"25"_s);
        QCOMPARE(backgroundColor(), QColor(0x323232));
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
};

QTEST_MAIN(SettingsWindowTest)
#include "SettingsWindowTest.moc"
