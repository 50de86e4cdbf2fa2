// SPDX-License-Identifier: MIT
#include "settings/FrequencyControl.h"

#include "support/Columns.h"
#include "support/SettingsFixture.h"
#include "support/TimeZone.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QMenu>
#include <QWheelEvent>

class FrequencyControlTest final : public SettingsFixture
{
    Q_OBJECT

private slots:
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

    void numbersCaret_isInTheAccentColour()
    {
        const QColor accent = number()->palette().color(QPalette::Link);
        QVERIFY(QTest::qWaitForWindowActive(number()->window()));
        number()->clearFocus();
        QCOMPARE(columnsOf(*number(), accent), 0);
        number()->setFocus();
        number()->end(false);
        QCOMPARE(columnsOf(*number(), accent), 1);
    }

    void numbersMenu_isOurs()
    {
        QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(5, 5),
                                number()->mapToGlobal(QPoint(5, 5)));
        QCoreApplication::sendEvent(number(), &event);
        const auto *const menu = number()->findChild<QMenu *>();
        QVERIFY(menu);
        QVERIFY(menu->testAttribute(Qt::WA_TranslucentBackground));
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

    void number_thatAssistiveTechnologySets_isTakenWhenTheFocusGoes()
    {
        number()->setFocus();
        QAccessibleInterface *const field = QAccessible::queryAccessibleInterface(number());
        QVERIFY(field->editableTextInterface());
        field->editableTextInterface()->replaceText(0, static_cast<int>(number()->text().size()),
                                                    u"25"_s);
        QTest::keyClick(number(), Qt::Key_Tab);
        QCOMPARE((*m_state)->intervalMinutes(), 25);
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
        QCOMPARE(m_desktop->writes, 3); // applied, and then already at the limit
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

    void stepper_turnsWithTheWheel_whileItHasTheFocus()
    {
        QWidget *const stepper = named<QAbstractButton>(QLatin1String("Increase"))->parentWidget();
        // Returns whether the stepper took the turn. A notch is 120 (QWheelEvent::angleDelta()).
        const auto turn = [stepper](int angle) {
            const QPointF centre = stepper->rect().center();
            QWheelEvent event(centre, stepper->mapToGlobal(centre), {}, {0, angle}, Qt::NoButton,
                              Qt::NoModifier, Qt::NoScrollPhase, false);
            QCoreApplication::sendEvent(stepper, &event);
            return event.isAccepted();
        };
        number()->setFocus();
        QVERIFY(!turn(120)); // scrolls the window instead, if that can scroll
        QCOMPARE((*m_state)->intervalMinutes(), 60);
        stepper->setFocus();
        QVERIFY(turn(120));
        QCOMPARE((*m_state)->intervalMinutes(), 65);
        turn(-240);
        QCOMPARE((*m_state)->intervalMinutes(), 55);
        turn(60); // a finer wheel's
        QCOMPARE((*m_state)->intervalMinutes(), 55);
        turn(60);
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
        QVERIFY(label(u"11:05"_s)); // 09:05 UTC plus an hour, in Berlin
        (*m_state)->setFolderPath(QString());
        QTRY_VERIFY(!label(u"next at"_s)->isVisible());
    }

    void nextPrompt_movesOnWithThePrompts()
    {
        (*m_state)->setFolderPath(u"/tmp/Journal"_s);
        QTRY_VERIFY(label(u"11:05"_s));
        m_desktop->now = m_desktop->now.addSecs(3600);
        m_desktop->fireTimer();
        QTRY_VERIFY(label(u"12:05"_s));
    }

    void nextPrompt_isShownInTheZoneOfNow()
    {
        const TimeZone berlin("Europe/Berlin");
        (*m_state)->setFolderPath(u"/tmp/Journal"_s);
        QTRY_VERIFY(label(u"11:05"_s));
        m_desktop->setZone("Asia/Tokyo");
        QTRY_VERIFY(label(u"19:05"_s));
    }

    void number_isWrittenAnew_whenTheLocaleChanges()
    {
        number()->setText(u"6O"_s); // as another locale might write it
        QEvent change(QEvent::LocaleChange);
        QCoreApplication::sendEvent(qApp, &change);
        QCOMPARE(number()->text(), u"60"_s);
        QCOMPARE(m_desktop->writes, 0);
    }

    void nextPrompt_isWordedAnew_whenTheLocaleChanges()
    {
        (*m_state)->setFolderPath(u"/tmp/Journal"_s);
        QTRY_VERIFY(label(u"11:05"_s));
        // The toolkit reloads the locale only on some platforms, so the label is changed here.
        label(u"11:05"_s)->setText(u"11.05"_s);
        QEvent change(QEvent::LocaleChange);
        QCoreApplication::sendEvent(qApp, &change);
        QVERIFY(label(u"11:05"_s));
    }
};

QTEST_MAIN(FrequencyControlTest)
#include "FrequencyControlTest.moc"
