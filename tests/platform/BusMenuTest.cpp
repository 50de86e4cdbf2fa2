// SPDX-License-Identifier: MIT
#include "platform/linux/menu/BusMenu.h"

#include <QMenu>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

class BusMenuTest final : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { registerBusMenuTypes(); }

    void init()
    {
        m_menu = std::make_unique<QMenu>();
        m_status = m_menu->addAction(u"Every 60 min"_s);
        m_status->setEnabled(false);
        m_menu->addSeparator();
        m_settings = m_menu->addAction(u"Settings…"_s);
        m_settings->setShortcut(Qt::CTRL | Qt::Key_Comma);
        m_bus = new BusMenu(*m_menu, KeyNames::X11, m_menu.get());
    }

    void label_showsEveryCharacter_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("label");
        QTest::newRow("plain") << u"Quit"_s << u"Quit"_s;
        QTest::newRow("underscores") << u"my_own__folder"_s << u"my__own____folder"_s;
        QTest::newRow("ampersands") << u"a && b && c"_s << u"a & b & c"_s;
        QTest::newRow("mnemonic") << u"&Quit"_s << u"_Quit"_s;
        QTest::newRow("at the end") << u"a &&"_s << u"a &"_s;
    }
    void label_showsEveryCharacter()
    {
        QFETCH(const QString, text);
        m_status->setText(text);
        QTEST(m_bus->GetProperty(1, u"label"_s).variant().toString(), "label");
    }

    void layout_hasTheItems_withWhatIsAskedFor()
    {
        BusMenuLayout layout;
        m_bus->GetLayout(0, -1, {}, layout);
        QCOMPARE(layout.id, 0);
        QCOMPARE(layout.children.size(), 3);
        QCOMPARE(layout.children.at(0).properties.value(u"enabled"_s), false);
        QCOMPARE(layout.children.at(1).properties.value(u"type"_s), u"separator"_s);
        QCOMPARE(layout.children.at(2).id, 3);
        QCOMPARE(layout.children.at(2).properties.value(u"shortcut"_s).value<QList<QStringList>>(),
                 (QList<QStringList>{{u"Control"_s, u"comma"_s}}));

        BusMenuLayout labels;
        m_bus->GetLayout(0, 1, {u"label"_s}, labels);
        QCOMPARE(labels.children.at(2).properties, (QVariantMap{{u"label"_s, u"Settings…"_s}}));
        BusMenuLayout flat;
        m_bus->GetLayout(0, 0, {}, flat);
        QVERIFY(flat.children.isEmpty());
        BusMenuLayout unknown;
        m_bus->GetLayout(17, -1, {}, unknown);
        QVERIFY(unknown.properties.isEmpty());
    }

    void groupProperties_areOfThoseThatThereAre()
    {
        QCOMPARE(m_bus->GetGroupProperties({}, {}).size(), 3);
        const QList<BusMenuItem> some = m_bus->GetGroupProperties({3, 99, -1, 0}, {u"enabled"_s});
        QCOMPARE(some.size(), 2);
        QCOMPARE(some.at(0).id, 3);
        QCOMPARE(some.at(0).properties, (QVariantMap{{u"enabled"_s, true}}));
        QCOMPARE(some.at(1).id, 0);
        QVERIFY(m_bus->GetProperty(99, u"label"_s).variant().isValid());
    }

    void changes_areTold()
    {
        const QSignalSpy updates(m_bus, &BusMenu::ItemsPropertiesUpdated);
        m_status->setText(u"Every 25 min"_s);
        QCOMPARE(updates.size(), 1);
        const auto items = updates.constFirst().constFirst().value<QList<BusMenuItem>>();
        QCOMPARE(items.size(), 1);
        QCOMPARE(items.constFirst().id, 1);
        QCOMPARE(items.constFirst().properties.value(u"label"_s), u"Every 25 min"_s);
    }

    void clicks_triggerWhatCanBeChosen()
    {
        const QSignalSpy chosen(m_settings, &QAction::triggered);
        const QSignalSpy greyed(m_status, &QAction::triggered);
        m_bus->Event(3, u"hovered"_s, {}, 0);
        m_bus->Event(1, u"clicked"_s, {}, 0);
        m_bus->Event(99, u"clicked"_s, {}, 0);
        m_bus->Event(-1, u"clicked"_s, {}, 0);
        QCOMPARE(m_bus->EventGroup({{.id = 3, .name = u"clicked"_s, .data = {}, .timestamp = 0},
                                    {.id = 99, .name = u"clicked"_s, .data = {}, .timestamp = 0}}),
                 QList<int>{99});
        QVERIFY2(chosen.isEmpty(), "the host has its answer first");
        QTRY_COMPARE(chosen.size(), 1);
        QCOMPARE(greyed.size(), 0);
    }

    void menuThatIsAboutToBeShown_isRefreshedFirst()
    {
        const QSignalSpy shown(m_menu.get(), &QMenu::aboutToShow);
        QVERIFY(!m_bus->AboutToShow(0));
        QVERIFY(!m_bus->AboutToShow(99));
        QCOMPARE(shown.size(), 1);
        QList<int> unknown;
        QVERIFY(m_bus->AboutToShowGroup({0, 99}, unknown).isEmpty());
        QCOMPARE(unknown, QList<int>{99});
    }

private:
    std::unique_ptr<QMenu> m_menu;
    QAction *m_status = nullptr;
    QAction *m_settings = nullptr;
    BusMenu *m_bus = nullptr;
};

QTEST_MAIN(BusMenuTest)
#include "BusMenuTest.moc"
