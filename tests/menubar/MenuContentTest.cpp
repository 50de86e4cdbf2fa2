// SPDX-License-Identifier: MIT
#include "menubar/MenuContent.h"

#include "app/AppDelegate.h"
#include "support/AppStateForTests.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace
{
AppState *shared = nullptr;
} // namespace

class MenuContentTest final : public QObject
{
    Q_OBJECT

private slots:
    void items_areInOrder()
    {
        TestDesktop desktop;
        AppStateForTests state(desktop);
        const MenuContent menu(*state);
        QStringList items;
        for (const QAction *const action : menu.actions()) {
            items.append(action->isSeparator() ? u"-"_s
                                               : action->text() + u'|'
                                 + action->shortcut().toString(QKeySequence::PortableText));
            QCOMPARE(action->isEnabled(), action != menu.actions().constFirst());
        }
        QCOMPARE(items,
                 (QStringList{u"No folder selected|"_s, u"-"_s, u"Write now|Ctrl+J"_s,
                              u"Settings…|Ctrl+,"_s, u"-"_s, u"Check for Updates…|"_s, u"-"_s,
                              u"Quit|Ctrl+Q"_s}));
    }

    void status_followsTheState()
    {
        TestDesktop desktop;
        AppStateForTests state(desktop);
        const MenuContent menu(*state);
        state->setFolderPath(u"/Users/ann/Notes/Journal"_s);
        state->setIntervalMinutes(25);
        QTRY_COMPARE(menu.actions().constFirst()->text(), u"Every 25 min → Journal"_s);
        state->setFolderPath(QString());
        QTRY_COMPARE(menu.actions().constFirst()->text(), u"No folder selected"_s);
    }

    void theme_isForTheTwoWindowsAlone()
    {
        TestDesktop desktop;
        AppStateForTests state(desktop);
        const auto pictureOfANewMenu = [&] {
            MenuContent menu(*state);
            menu.popup({});
            return menu.grab().toImage();
        };
        const QPalette palette = QApplication::palette();
        const QImage light = pictureOfANewMenu();
        state->setTheme(ThemePreference::dark);
        state->showSettings();
        QCOMPARE(pictureOfANewMenu(), light);
        QCOMPARE(QApplication::palette(), palette);
        desktop.setColorScheme(ColorScheme::Dark);
        QVERIFY(pictureOfANewMenu() != light);
    }

    void status_showsEveryCharacterOfTheFolder()
    {
        TestDesktop desktop;
        AppStateForTests state(desktop);
        state->setFolderPath(u"/home/ann/my_journal & co/"_s);
        const MenuContent menu(*state);
        QCOMPARE(menu.actions().constFirst()->text(), u"Every 60 min → my_journal && co"_s);
    }

    void keyEquivalents_workWhileTheMenuIsOpen()
    {
        TestDesktop desktop;
        AppStateForTests state(desktop);
        MenuContent menu(*state);
        menu.popup(QPoint(0, 0));
        QTest::keyClick(&menu, Qt::Key_J, Qt::ControlModifier);
        QVERIFY(state.promptWindow() && state.promptWindow()->isVisible());
        QVERIFY(!menu.isVisible());
        menu.popup(QPoint(0, 0));
        QTest::keyClick(&menu, Qt::Key_Comma, Qt::ControlModifier);
        QVERIFY(state.settingsWindow() && state.settingsWindow()->isVisible());
        QVERIFY(!menu.isVisible());
        state.settingsWindow()->hide();
        menu.popup(QPoint(0, 0));
        QTest::keyClick(&menu, Qt::Key_Comma, Qt::MetaModifier);
        QVERIFY(state.settingsWindow()->isVisible());
    }

    void writeNow_worksWithoutAFolder()
    {
        TestDesktop desktop;
        AppStateForTests state(desktop);
        const MenuContent menu(*state);
        menu.actions().at(2)->trigger();
        QVERIFY(state.promptWindow()->isVisible());
    }

    void checkForUpdates_reachesTheDelegateOnce()
    {
        TestDesktop desktop;
        AppStateForTests state(desktop);
        const MenuContent menu(*state);
        QAction *const check = menu.actions().at(5);
        shared = &*state;
        AppDelegate delegate([]() -> AppState & { return *shared; });

        setApplicationDelegate(nullptr);
        check->trigger();
        QObject stranger;
        setApplicationDelegate(&stranger);
        check->trigger();
        QCOMPARE(desktop.packageManager->asked, QStringList());

        setApplicationDelegate(&delegate);
        check->trigger();
        QCOMPARE(desktop.packageManager->asked, QStringList{u"findPackageOf"_s});
    }
};

QTEST_MAIN(MenuContentTest)
#include "MenuContentTest.moc"
