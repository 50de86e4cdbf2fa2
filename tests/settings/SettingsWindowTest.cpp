// SPDX-License-Identifier: MIT
#include "look/ControlStyle.h"
#include "look/Labels.h"
#include "settings/SettingRow.h"
#include "settings/SettingsView.h"
#include "support/AppStateForTests.h"
#include "support/TimeZone.h"

#include <QAccessible>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;

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
        QCOMPARE(tile->pos(), QPoint(0, 15));
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

    void typedNumber_isTakenOnReturn_andClamped_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<qint64>("minutes");
        QTest::newRow("plain") << u"25"_s << 25LL;
        QTest::newRow("zero") << u"0"_s << 1LL;
        QTest::newRow("too many") << u"5000"_s << 1440LL;
        QTest::newRow("letters") << u"often"_s << 60LL;
        QTest::newRow("beyond 64 bits") << u"99999999999999999999"_s << 60LL;
    }

    void typedNumber_isTakenOnReturn_andClamped()
    {
        QFETCH(QString, typed);
        number()->selectAll();
        QTest::keyClicks(number(), typed);
        QCOMPARE((*m_state)->intervalMinutes(), 60);
        QTest::keyClick(number(), Qt::Key_Return);
        QTEST((*m_state)->intervalMinutes(), "minutes");
        QCOMPARE(number()->text(), QLocale::system().toString((*m_state)->intervalMinutes()));
    }

    void editedNumber_isTakenWhenTheFocusGoes_anUneditedOneIsNot()
    {
        number()->setFocus();
        QTest::keyClick(number(), Qt::Key_Tab);
        QCOMPARE(m_desktop->writes, 0);
        number()->setFocus();
        number()->selectAll();
        QTest::keyClicks(number(), u"30"_s);
        QTest::keyClick(number(), Qt::Key_Tab);
        QCOMPARE((*m_state)->intervalMinutes(), 30);
        QCOMPARE(m_desktop->writes, 1);
    }

    void editedNumber_isTakenWhenTheWindowCloses()
    {
        number()->setFocus();
        number()->selectAll();
        QTest::keyClicks(number(), u"30"_s);
        QTest::keyClick(number(), Qt::Key_W, Qt::ControlModifier);
        QVERIFY(!window()->isVisible());
        QCOMPARE((*m_state)->intervalMinutes(), 30);
        QCOMPARE(m_desktop->writes, 1);
    }

    void stepper_stepsByFive_andClamps()
    {
        const auto press = [this](const char *name, qint64 from) {
            (*m_state)->setIntervalMinutes(from);
            QCoreApplication::processEvents();
            QTest::mouseClick(named<QAbstractButton>(QLatin1String(name)), Qt::LeftButton);
            return (*m_state)->intervalMinutes();
        };
        QCOMPARE(press("Increase", 1), 6);
        QCOMPARE(press("Increase", 6), 11);
        QCOMPARE(press("Increase", 1438), 1440);
        QCOMPARE(press("Increase", 1440), 1440);
        QCOMPARE(press("Decrease", 3), 1);
        QCOMPARE(press("Decrease", 60), 55);
    }

    void stepper_atAnEnd_doesNothing()
    {
        for (const auto &[name, end] : {std::pair("Increase", 1440), std::pair("Decrease", 1)}) {
            (*m_state)->setIntervalMinutes(end);
            QCoreApplication::processEvents();
            const int writes = m_desktop->writes;
            QTest::mouseClick(named<QAbstractButton>(QLatin1String(name)), Qt::LeftButton);
            QCOMPARE((*m_state)->intervalMinutes(), end);
            QCOMPARE(m_desktop->writes, writes);
        }
    }

    void stepper_takesWhatWasTypedFirst()
    {
        const auto typed = [this](const QString &text) {
            number()->setFocus();
            number()->selectAll();
            QTest::keyClicks(number(), text);
            QTest::mouseClick(named<QAbstractButton>(u"Increase"_s), Qt::LeftButton);
            return (*m_state)->intervalMinutes();
        };
        QCOMPARE(typed(u"30"_s), 35);
        QCOMPARE(m_desktop->writes, 2);
        QCOMPARE(typed(u"5000"_s), 1440);
        QCOMPARE(m_desktop->writes, 3); // taken, and then at its end
        QCOMPARE(typed(u"often"_s), 1440);
        QCOMPARE(number()->text(), QLocale::system().toString(1440));
    }

    void stepper_hasKeys()
    {
        QWidget *const stepper = named<QAbstractButton>(QLatin1String("Increase"))->parentWidget();
        stepper->setFocus();
        QTest::keyClick(stepper, Qt::Key_Up);
        QCOMPARE((*m_state)->intervalMinutes(), 65);
        QTest::keyClick(stepper, Qt::Key_Down);
        QCOMPARE((*m_state)->intervalMinutes(), 60);
    }

    void unit_isSingularAtOne()
    {
        QVERIFY(label(u"minutes"_s));
        (*m_state)->setIntervalMinutes(1);
        QTRY_VERIFY(label(u"minute"_s));
        (*m_state)->setIntervalMinutes(2);
        QTRY_VERIFY(label(u"minutes"_s));
    }

    void nextPrompt_isShownOnlyWhenThereIsOne()
    {
        QVERIFY(!label(u"next at"_s)->isVisible());
        (*m_state)->setFolderPath(u"/tmp/Journal"_s);
        QTRY_VERIFY(label(u"next at"_s)->isVisible());
        QVERIFY(label(u"11:05"_s)); // 09:05 UTC and an hour, in Berlin
        (*m_state)->setFolderPath(QString());
        QTRY_VERIFY(!label(u"next at"_s)->isVisible());
    }

    void nextPrompt_isShownInTheZoneOfNow()
    {
        const TimeZone berlin("Europe/Berlin");
        (*m_state)->setFolderPath(u"/tmp/Journal"_s);
        QTRY_VERIFY(label(u"11:05"_s));
        m_desktop->setZone("Asia/Tokyo");
        QTRY_VERIFY(label(u"19:05"_s));
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

    void nextPrompt_isWordedAnew_whenTheLocaleChanges()
    {
        (*m_state)->setFolderPath(u"/tmp/Journal"_s);
        QTRY_VERIFY(label(u"11:05"_s));
        // The toolkit reads the locale anew only on some platforms, so another wording is put
        // there.
        label(u"11:05"_s)->setText(u"11.05"_s);
        QEvent change(QEvent::LocaleChange);
        QCoreApplication::sendEvent(qApp, &change);
        QVERIFY(label(u"11:05"_s));
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
    template <typename Widget>
    [[nodiscard]] Widget *named(const QString &accessibleName) const
    {
        for (Widget *const each : window()->findChildren<Widget *>()) {
            if (each->accessibleName() == accessibleName) {
                return each;
            }
        }
        return nullptr;
    }
    [[nodiscard]] QLineEdit *number() const { return named<QLineEdit>(u"Prompt Frequency"_s); }
    [[nodiscard]] QWidget *window() const { return m_state->settingsWindow(); }
    [[nodiscard]] QPushButton *button() const { return window()->findChild<QPushButton *>(); }
    [[nodiscard]] ElidedLabel *path() const
    {
        return window()->findChildren<ElidedLabel *>().constLast();
    }
    /// In the window.
    static QRect placeOf(const QWidget &widget)
    {
        return {widget.mapTo(widget.window(), QPoint()), widget.size()};
    }
    static QRect faceOf(const QWidget &control)
    {
        return placeOf(control).marginsRemoved(ControlStyle::overhang);
    }
    [[nodiscard]] SettingRow *rowAt(const QRect &place) const
    {
        const auto rows = window()->findChildren<SettingRow *>();
        const auto found = std::ranges::find_if(
            rows, [&](const SettingRow *row) { return placeOf(*row).contains(place); });
        return found == rows.end() ? nullptr : *found;
    }
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
