// SPDX-License-Identifier: MIT
#include "menubar/MenuContent.h"

#include "core/AppDelegate.h"
#include "menubar/MenuText.h"
#include "support/AppStateForTests.h"

#include <QTest>

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
        const MenuContent menu(*state, MenuContent::Shown::ByUs);
        QStringList items;
        for (const QAction *const action : menu.actions()) {
            items.append(action->isSeparator() ? u"-"_qs
                                               : action->text() + u'|'
                                 + action->shortcut().toString(QKeySequence::PortableText));
            QCOMPARE(action->isEnabled(), action != menu.actions().constFirst());
        }
        QCOMPARE(items,
                 (QStringList{u"No folder selected|"_qs, u"-"_qs, u"Write now|Ctrl+J"_qs,
                              u"Settings…|Ctrl+,"_qs, u"-"_qs, u"Check for Updates…|"_qs, u"-"_qs,
                              u"Quit|Ctrl+Q"_qs}));
    }

    void status_followsTheState()
    {
        TestDesktop desktop;
        AppStateForTests state(desktop);
        const MenuContent menu(*state, MenuContent::Shown::ByUs);
        state->setFolderPath(u"/Users/ann/Notes/Journal"_qs);
        state->setIntervalMinutes(25);
        QTRY_COMPARE(menu.actions().constFirst()->text(), u"Every 25 min → Journal"_qs);
        state->setFolderPath(QString());
        QTRY_COMPARE(menu.actions().constFirst()->text(), u"No folder selected"_qs);
    }

    void status_showsEveryCharacterOfTheFolder()
    {
        TestDesktop desktop;
        AppStateForTests state(desktop);
        state->setFolderPath(u"/home/ann/my_journal & co/"_qs);
        const MenuContent ours(*state, MenuContent::Shown::ByUs);
        QCOMPARE(ours.actions().constFirst()->text(), u"Every 60 min → my_journal && co"_qs);
        const MenuContent theirs(*state, MenuContent::Shown::ByTheDesktop);
        QCOMPARE(theirs.actions().constFirst()->text(), u"Every 60 min → my__journal && co"_qs);
    }

    void exportedText_doublesTheFirstMarkOnly()
    {
        QCOMPARE(MenuText::exported(u"a & b & c"_qs), u"a && b & c"_qs);
        QCOMPARE(MenuText::drawn(u"a & b & c"_qs), u"a && b && c"_qs);
        QCOMPARE(MenuText::exported(u"plain"_qs), u"plain"_qs);
    }

    void keyEquivalents_workWhileTheMenuIsOpen()
    {
        TestDesktop desktop;
        AppStateForTests state(desktop);
        MenuContent menu(*state, MenuContent::Shown::ByUs);
        menu.popup(QPoint(0, 0));
        QTest::keyClick(&menu, Qt::Key_J, Qt::ControlModifier);
        QVERIFY(state.promptWindow() && state.promptWindow()->isVisible());
        QVERIFY(!menu.isVisible());
        menu.popup(QPoint(0, 0));
        QTest::keyClick(&menu, Qt::Key_Comma, Qt::ControlModifier);
        QVERIFY(state.settingsWindow() && state.settingsWindow()->isVisible());
        QVERIFY(!menu.isVisible());
    }

    void writeNow_worksWithoutAFolder()
    {
        TestDesktop desktop;
        AppStateForTests state(desktop);
        const MenuContent menu(*state, MenuContent::Shown::ByUs);
        menu.actions().at(2)->trigger();
        QVERIFY(state.promptWindow()->isVisible());
    }

    void checkForUpdates_reachesTheDelegateOnce()
    {
        TestDesktop desktop;
        AppStateForTests state(desktop);
        const MenuContent menu(*state, MenuContent::Shown::ByUs);
        QAction *const check = menu.actions().at(5);
        shared = &*state;
        AppDelegate delegate([]() -> AppState & { return *shared; });

        setApplicationDelegate(nullptr);
        check->trigger();
        QObject stranger;
        setApplicationDelegate(&stranger);
        check->trigger();
        QCOMPARE(desktop.updateLog, QStringList());

        setApplicationDelegate(&delegate);
        check->trigger();
        QCOMPARE(desktop.updateLog, QStringList{u"check"_qs});
    }
};

QTEST_MAIN(MenuContentTest)
#include "MenuContentTest.moc"
