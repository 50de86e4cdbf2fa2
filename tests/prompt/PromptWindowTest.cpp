// SPDX-License-Identifier: MIT
#include "app/Catalogue.h"
#include "support/PromptFixture.h"
#include "support/TimeZone.h"

#include <QInputMethod>
#include <QLabel>
#include <QScreen>
#include <QSignalSpy>
#include <QTimeZone>

class PromptWindowTest final : public PromptFixture
{
    Q_OBJECT

private slots:
    void title_isTheOpenTime_onA24HourClock()
    {
        const TimeZone zone("Europe/Berlin");
        m_desktop->now = QDateTime(QDate(2026, 11, 15), QTime(13, 30), QTimeZone::utc());
        open();
        QCOMPARE(window()->windowTitle(), u"14:30"_s);
    }

    void title_hasAsciiDigits_whereverTheUserLives()
    {
        const QLocale before;
        QLocale::setDefault(QLocale(QLocale::Arabic, QLocale::Egypt));
        const TimeZone zone("Europe/Berlin");
        open();
        QLocale::setDefault(before);
        QCOMPARE(window()->windowTitle(), u"10:05"_s);
    }

    void hint_namesTheKeysOfThisKeyboard()
    {
        installCatalogue();
        open();
        QStringList shown;
        for (const QLabel *const label : window()->findChildren<QLabel *>()) {
            shown.append(label->text());
        }
        QCOMPARE(shown,
                 (QStringList{window()->windowTitle(), u"Ctrl+↵ to save · esc to cancel"_s}));
    }

    void sound_comesBeforeTheCard()
    {
        open();
        QCOMPARE(m_desktop->soundLogWhenPresented, QStringList{u"play Purr"_s});
    }

    void opensSettled_inTheUpperThirdOfTheScreen()
    {
        open();
        QTRY_COMPARE(window()->height(), 28 + 24 + qMax(52, editor()->cursorRect().height() + 32));
        QCOMPARE(window()->width(), 560);
        const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
        QCOMPARE(window()->x(), screen.x() + (screen.width() - 560) / 2);
        QCOMPARE(window()->y(), screen.y() + (screen.height() - 28 - 76) / 3);
    }

    void window_isNeitherResizableNorMinimisable()
    {
        open();
        QCOMPARE(window()->minimumSize(), window()->maximumSize());
        QVERIFY(!window()->windowFlags().testFlag(Qt::WindowMinimizeButtonHint));
    }

    void secondShow_doesNothing()
    {
        open();
        QWidget *const first = window();
        first->move(10, 10);
        m_desktop->now = m_desktop->now.addSecs(3600);
        const QString title = first->windowTitle();
        (*m_state)->showPrompt();
        QCOMPARE(window(), first);
        QCOMPARE(window()->windowTitle(), title);
        QCOMPARE(window()->pos(), QPoint(10, 10));
        QCOMPARE(m_desktop->presented.size(), 1);
        QCOMPARE(m_desktop->soundLog, QStringList{u"play Purr"_s});
    }

    void closeButton_leavesAStaleWindow_andTheNextIsFresh()
    {
        open();
        QTest::keyClicks(editor(), u"lost"_s);
        const QPointer first = window();
        QTest::mouseClick(closeButton(), Qt::LeftButton);
        QVERIFY(!window()->isVisible());
        QCOMPARE(window(), first.data());
        (*m_state)->showPrompt();
        QVERIFY(window() != first.data());
        QVERIFY(window()->isVisible());
        QCOMPARE(editor()->toPlainText(), QString());
        QTRY_VERIFY(!first); // deleted in a later iteration of the event loop
    }

    void escape_dropsTheNote()
    {
        open();
        QTest::keyClicks(editor(), u"lost"_s);
        const QPointer closing = window();
        QTest::keyClick(editor(), Qt::Key_Escape);
        QVERIFY(!window());
        QVERIFY(closing && !closing->isVisible());
        QTRY_VERIFY(!closing);
        QVERIFY(!QFile::exists((*m_state)->folderPath()));
    }

    void escape_thatEndedAComposition_doesNothingElse()
    {
        open();
        const auto compose = [this](const QString &preedit, const QString &committed) {
            QInputMethodEvent event(preedit, {});
            event.setCommitString(committed);
            QCoreApplication::sendEvent(editor(), &event);
        };
        // Some engines end the composition themselves and then pass the key on.
        compose(u"ㅎ"_s, {});
        compose({}, u"하"_s);
        QTest::keyClick(editor(), Qt::Key_Escape);
        QVERIFY(m_state->promptWindow()->isVisible());
        QCOMPARE(editor()->toPlainText(), u"하"_s);
        // Others leave that to us.
        compose(u"ㅎ"_s, {});
        QTest::keyClick(editor(), Qt::Key_Escape);
        QVERIFY(m_state->promptWindow()->isVisible());
        compose({}, {});
        QTest::keyClick(editor(), Qt::Key_Left);
        QTest::keyClick(editor(), Qt::Key_Escape);
        QVERIFY(!m_state->promptWindow());
    }

    void inputMethod_isToldWhenTheCardMoves()
    {
        open();
        QTRY_VERIFY(editor()->hasFocus());
        QSignalSpy told(QGuiApplication::inputMethod(), &QInputMethod::cursorRectangleChanged);
        m_state->promptWindow()->move(17, 19);
        QTRY_VERIFY(!told.isEmpty());
    }

    void submit_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
        QTest::addColumn<bool>("fromButton");
        const Qt::KeyboardModifiers control = Qt::ControlModifier;
        const Qt::KeyboardModifiers super = Qt::MetaModifier;
        const int enter = Qt::Key_Enter;
        const int key = Qt::Key_Return;
        QTest::newRow("Control-Return") << key << control << false;
        QTest::newRow("Super-Return") << key << super << false;
        QTest::newRow("Control-Enter") << enter << (control | Qt::KeypadModifier) << false;
        QTest::newRow("Super-Enter") << enter << (super | Qt::KeypadModifier) << false;
        QTest::newRow("on the button") << key << control << true;
    }

    void submit()
    {
        QFETCH(int, key);
        QFETCH(Qt::KeyboardModifiers, modifiers);
        QFETCH(bool, fromButton);
        const TimeZone zone("Europe/Berlin");
        open();
        QTest::keyClicks(editor(), u"  word"_s);
        QTest::keyClick(editor(), Qt::Key_Return);
        QTest::keyClick(editor(), Qt::Key_Return);
        QWidget *const target = fromButton ? static_cast<QWidget *>(closeButton()) : editor();
        target->setFocus();
        QTest::keyClick(target, static_cast<Qt::Key>(key), modifiers);
        QVERIFY(!window());
        QCOMPARE(day(), "# 2026-11-15\n\n## 10:05\nword\n");
    }

    void blankNote_isNotSubmitted()
    {
        open();
        QTest::keyClicks(editor(), u"  "_s);
        QTest::keyClick(editor(), Qt::Key_Return);
        QTest::keyClick(editor(), Qt::Key_Return, Qt::ControlModifier);
        QVERIFY(window()->isVisible());
        QCOMPARE(editor()->toPlainText(), u"  \n"_s);
        QVERIFY(m_desktop->alerts.isEmpty());
    }

    void heldKeys_areNoNewPress()
    {
        open();
        QTest::keyClicks(editor(), u"x"_s);
        constexpr bool isPress = true;
        constexpr bool isRepeat = true;
        QTest::simulateEvent(editor(), isPress, Qt::Key_Return, Qt::ControlModifier, u"\r"_s,
                             isRepeat);
        QTest::simulateEvent(editor(), isPress, Qt::Key_Escape, Qt::NoModifier, QString(),
                             isRepeat);
        QVERIFY(window()->isVisible());
        QCOMPARE(editor()->toPlainText(), u"x"_s);
        QTest::keyClick(editor(), Qt::Key_Return, Qt::ControlModifier);
        QVERIFY(!window());
    }

    void innerIndentation_isKept()
    {
        const TimeZone zone("Europe/Berlin");
        open();
        paste(u"one\n    two"_s);
        QTest::keyClick(editor(), Qt::Key_Return, Qt::ControlModifier);
        QCOMPARE(day(), "# 2026-11-15\n\n## 10:05\none\n    two\n");
    }

    void controlTab_movesTheFocus()
    {
        open();
        QTRY_VERIFY(editor()->hasFocus());
        QTest::keyClick(editor(), Qt::Key_Tab, Qt::ControlModifier);
        QVERIFY(closeButton()->hasFocus());
        QTest::keyClick(closeButton(), Qt::Key_Escape);
        QVERIFY(!window());
    }

    void clickIntoThePadding_placesTheCaret()
    {
        open();
        QTest::keyClicks(editor(), u"word"_s);
        QWidget *const box = editor()->parentWidget();
        QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(4, box->height() / 2));
        QCOMPARE(editor()->textCursor().position(), 0);
    }

    void clickOnTheQuestion_reachesTheEditor()
    {
        open();
        closeButton()->setFocus();
        QWidget *const box = editor()->parentWidget();
        const QPoint question(60, box->height() / 2);
        QTest::mouseClick(window()->childAt(box->mapTo(window(), question)), Qt::LeftButton);
        QVERIFY(editor()->hasFocus());
    }

    void question_isSeenWhileNothingIsWritten()
    {
        open();
        constexpr int pastTheCaret = 20;
        const auto line = [this] {
            return editor()->grab(editor()->rect().adjusted(pastTheCaret, 0, 0, 0)).toImage();
        };
        const QImage empty = line();
        QTest::keyClicks(editor(), u" "_s);
        QVERIFY(line() != empty);
        QTest::keyClick(editor(), Qt::Key_Backspace);
        QCOMPARE(line(), empty);
    }

    void blur_isAskedForInsideTheRoundCorners()
    {
        open();
        QVERIFY(m_desktop->blurred.isEmpty());
        m_desktop->blursBehind = true;
        m_desktop->setComposited(true);
        const QRegion blurred = m_desktop->blurred;
        const QRect card = blurred.boundingRect();
        QCOMPARE(card.width(), 560);
        QCOMPARE(card.center().x(), window()->rect().center().x());
        QVERIFY(blurred.contains(card.center()));
        for (const QPoint corner :
             {card.topLeft(), card.topRight(), card.bottomLeft(), card.bottomRight()}) {
            QVERIFY(!blurred.contains(corner));
        }
    }

    void pressInTheMargin_movesTheCard()
    {
        open();
        QTest::mousePress(window(), Qt::RightButton, {}, {5, 50});
        QCOMPARE(m_desktop->moved.size(), 0);
        QTest::mouseRelease(window(), Qt::RightButton, {}, {5, 50});
        QTest::mousePress(window(), Qt::LeftButton, {}, {5, 50});
        QCOMPARE(m_desktop->moved, QList<QPointer<QWidget>>{window()});
    }

    void painting_replacesWhatWasPaintedBefore()
    {
        m_desktop->isComposited = true;
        open();
        QImage painted(window()->size(), QImage::Format_ARGB32_Premultiplied);
        painted.fill(Qt::red);
        window()->render(&painted);
        QCOMPARE(painted.pixelColor(0, 0).alpha(), 0);
        const QColor once = painted.pixelColor(100, 60);
        window()->render(&painted);
        QCOMPARE(painted.pixelColor(100, 60), once);
    }

    void theme_isReadWhenTheWindowOpens()
    {
        m_desktop->colorScheme = ColorScheme::Light;
        (*m_state)->setTheme(ThemePreference::dark);
        open();
        QCOMPARE(boxColor(), QColor(0x1E1E1E));
        (*m_state)->setTheme(ThemePreference::light);
        QCoreApplication::processEvents();
        QCOMPARE(boxColor(), QColor(0x1E1E1E));
    }

    void systemTheme_followsTheDesktop()
    {
        open();
        QCOMPARE(boxColor(), QColor(0xFFFFFF));
        m_desktop->setColorScheme(ColorScheme::Dark);
        QCOMPARE(boxColor(), QColor(0x1E1E1E));
    }

    void compositor_thatStarts_givesAShadow_andLeavesTheFrame()
    {
        open();
        const QPoint frame = window()->pos();
        QCOMPARE(window()->grab().toImage().pixelColor(0, 0).alpha(), 255);
        m_desktop->setComposited(true);
        QVERIFY(window()->width() > 560);
        const int side = (window()->width() - 560) / 2;
        QCOMPARE(window()->x() + side, frame.x());
        QCOMPARE(window()->grab().toImage().pixelColor(0, 0).alpha(), 0);
        m_desktop->setComposited(false);
        QCOMPARE(window()->pos(), frame);
        QCOMPARE(window()->width(), 560);
    }
};

QTEST_MAIN(PromptWindowTest)
#include "PromptWindowTest.moc"
