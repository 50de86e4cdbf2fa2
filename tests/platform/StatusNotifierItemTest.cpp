// SPDX-License-Identifier: MIT
#include "platform/linux/tray/StatusNotifierItem.h"

#include "menubar/menuBarIcon.h"
#include "platform/linux/bus/ActivationToken.h"
#include "platform/linux/menu/BusMenu.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

using Host = StatusNotifierItem::Host;

namespace
{
QIcon iconOf(const QColor &color)
{
    QPixmap pixmap(64, 64);
    pixmap.fill(color);
    return {pixmap};
}
} // namespace

class StatusNotifierItemTest final : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_item = std::make_unique<StatusNotifierItem>(u"tovla"_s, u"Tovla"_s, true, nullptr);
    }

    void properties_describeTheProgram()
    {
        QCOMPARE(m_item->id(), u"tovla"_s);
        QCOMPARE(m_item->title(), u"Tovla"_s);
        QCOMPARE(m_item->toolTip().title, u"Tovla"_s);
        QCOMPARE(m_item->category(), u"ApplicationStatus"_s);
        QCOMPARE(m_item->status(), u"Active"_s);
        QCOMPARE(m_item->menu().path(), BusMenu::path());
        QVERIFY(m_item->itemIsMenu());
        QVERIFY(!StatusNotifierItem(u"tovla"_s, u"Tovla"_s, false, nullptr).itemIsMenu());
    }

    void pictures_areOfEverySize_inNetworkByteOrder()
    {
        const QSignalSpy changes(m_item.get(), &StatusNotifierItem::NewIcon);
        m_item->setIcon(iconOf(QColor(1, 2, 3)), Host::DrawsTheFile);
        QCOMPARE(changes.size(), 1);
        QList<int> sides;
        for (const StatusNotifierPicture &picture : m_item->iconPixmap()) {
            QCOMPARE(picture.height, picture.width);
            QCOMPARE(picture.bytes.size(), 4 * picture.width * picture.height);
            QCOMPARE(picture.bytes.first(4), "\xff\x01\x02\x03"_ba);
            QCOMPARE(picture.bytes.last(4), "\xff\x01\x02\x03"_ba);
            sides.append(picture.width);
        }
        QCOMPARE(sides, (QList<int>{16, 18, 22, 24, 32, 48, 64}));
        QCOMPARE(m_item->iconName(), QString());
    }

    void everyClick_asksForTheMenu()
    {
        const QSignalSpy wanted(m_item.get(), &StatusNotifierItem::menuWanted);
        m_item->Activate(1, 2);
        m_item->ContextMenu(3, 4);
        m_item->SecondaryActivate(5, 6);
        m_item->Scroll(120, u"vertical"_s);
        QCOMPARE(wanted.size(), 3);
        QCOMPARE(wanted.at(0).constFirst(), QPoint(1, 2));
        QCOMPARE(wanted.at(1).constFirst(), QPoint(3, 4));
        QCOMPARE(wanted.at(2).constFirst(), QPoint(5, 6));
    }

    void token_isForTheNextWindow()
    {
        m_item->ProvideXdgActivationToken(u"host/1"_s);
        QCOMPARE(ActivationToken::unused(), u"host/1"_s);
    }

    void installedFile_isNamedToAHostThatRecoloursIt_data()
    {
        QTest::addColumn<bool>("isInstalled");
        QTest::addColumn<Host>("host");
        QTest::addColumn<QString>("name");
        QTest::newRow("recolours it")
            << true << Host::RecoloursTheFile << u"org.tovla.Tovla-symbolic"_s;
        QTest::newRow("draws it") << true << Host::DrawsTheFile << QString();
        QTest::newRow("not there") << false << Host::RecoloursTheFile << QString();
    }
    void installedFile_isNamedToAHostThatRecoloursIt()
    {
        QFETCH(const bool, isInstalled);
        QFETCH(const Host, host);
        const QTemporaryDir data;
        const QString folder = data.path() + u"/icons/hicolor/symbolic/apps"_s;
        QVERIFY(QDir().mkpath(folder));
        QFile file(folder + u"/org.tovla.Tovla-symbolic.svg"_s);
        QVERIFY(!isInstalled || file.open(QIODevice::WriteOnly));
        qputenv("XDG_DATA_DIRS", data.path().toUtf8());
        m_item->setIcon(MenuBarIcon::icon(Qt::black), host);
        QTEST(m_item->iconName(), "name");
        QCOMPARE(m_item->iconThemePath(), QString());
    }

private:
    std::unique_ptr<StatusNotifierItem> m_item;
};

QTEST_MAIN(StatusNotifierItemTest)
#include "StatusNotifierItemTest.moc"
