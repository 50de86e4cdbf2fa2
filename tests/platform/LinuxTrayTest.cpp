// SPDX-License-Identifier: MIT
#include "platform/linux/tray/LinuxTray.h"

#include "menubar/menuBarIcon.h"
#include "platform/linux/tray/StatusNotifierItem.h"
#include "platform/linux/tray/StatusNotifierWatcher.h"
#include "support/SessionBusFixture.h"
#include "support/TestDesktop.h"
#include "support/X11Peer.h"

#include <QDBusVariant>
#include <QMenu>
#include <QSignalSpy>

#include <chrono>
#include <memory>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace
{
const QString service = u"org.kde.StatusNotifierWatcher"_s;
constexpr auto oldTray = "_NET_SYSTEM_TRAY_S0";
constexpr auto dockRequest = "_NET_SYSTEM_TRAY_OPCODE";
// The tray gives panels some seconds at the start of a session.
constexpr int patience = std::chrono::milliseconds(30s).count();
} // namespace

class LinuxTrayTest final : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        qunsetenv("XDG_CURRENT_DESKTOP");
        m_desktop = std::make_unique<TestDesktop>();
        m_capabilities = m_desktop->capabilities();
        m_menu = std::make_unique<QMenu>();
        m_menu->addAction(u"Quit"_s);
        m_tray = std::make_unique<LinuxTray>(*m_capabilities.appearance);
    }

    void icon_isRecoloured_withTheDesktop()
    {
        show();
        const QColor onLight = colorOfTheIcon();
        m_desktop->setColorScheme(ColorScheme::Dark);
        const QColor onDark = colorOfTheIcon();
        QVERIFY2(onLight.lightness() < 128, qPrintable(onLight.name()));
        QVERIFY2(onDark.lightness() > 128, qPrintable(onDark.name()));
    }

    void icon_isWhiteOnGnome_whoseBarIsAlwaysDark()
    {
        qputenv("XDG_CURRENT_DESKTOP", "GNOME");
        show();
        QCOMPARE(colorOfTheIcon(), QColor(Qt::white));
    }

    void menu_opensWhereTheClickWas()
    {
        show();
        item().Activate(300, 150);
        QTRY_VERIFY(m_menu->isVisible());
        QCOMPARE(m_menu->pos(), QPoint(300, 150));
    }

    void menu_opensAtThePointerOnMate_whichTellsTheCornerOfThePanel()
    {
        qputenv("XDG_CURRENT_DESKTOP", "MATE");
        QCursor::setPos(420, 230);
        QTRY_COMPARE(QCursor::pos(), QPoint(420, 230));
        show();
        item().Activate(300, 150);
        QTRY_VERIFY(m_menu->isVisible());
        QCOMPARE(m_menu->pos(), QPoint(420, 230));
    }

    void withoutAnyTray_thatIsTold_once()
    {
        QSignalSpy missing(m_tray.get(), &Tray::foundMissing);
        show();
        QVERIFY(missing.wait(patience));
        auto host = std::make_unique<BusPeer>(service);
        host->answer = [](const QDBusMessage &call) {
            return call.createReply(QVariant::fromValue(QDBusVariant(true)));
        };
        const auto *const watcher = m_tray->findChild<StatusNotifierWatcher *>();
        QTRY_COMPARE(watcher->hosts(), StatusNotifierWatcher::Hosts::Some);
        host.reset();
        QTRY_COMPARE(watcher->hosts(), StatusNotifierWatcher::Hosts::None);
        QCOMPARE(missing.size(), 1);
    }

    void olderTray_isAskedToShowTheIcon()
    {
        X11Peer panel;
        panel.own(oldTray);
        const QSignalSpy missing(m_tray.get(), &Tray::foundMissing);
        show();
        QTRY_VERIFY_WITH_TIMEOUT(!panel.messages(dockRequest).isEmpty(), patience);
        QVERIFY(missing.isEmpty());
    }

    void olderTray_thatComesLater_isAskedThen()
    {
        QSignalSpy missing(m_tray.get(), &Tray::foundMissing);
        show();
        QVERIFY(missing.wait(patience));
        X11Peer panel;
        panel.own(oldTray);
        panel.announce(oldTray);
        QTRY_VERIFY_WITH_TIMEOUT(!panel.messages(dockRequest).isEmpty(), patience);
    }

    void cleanup()
    {
        m_tray.reset();
        m_menu.reset();
        m_capabilities = {};
        QCoreApplication::processEvents();
    }

private:
    void show()
    {
        m_tray->show({.id = u"tovla"_s,
                      .title = u"Tovla"_s,
                      .icon = MenuBarIcon::icon,
                      .menu = m_menu.get()});
    }
    [[nodiscard]] StatusNotifierItem &item() const
    {
        return *m_tray->findChild<StatusNotifierItem *>();
    }
    /// That of the dot in its middle.
    [[nodiscard]] QColor colorOfTheIcon() const
    {
        const StatusNotifierPicture picture = item().iconPixmap().constLast();
        const QByteArray argb
            = picture.bytes.sliced(4 * (picture.width * picture.height + picture.width) / 2, 4);
        return {static_cast<uchar>(argb[1]), static_cast<uchar>(argb[2]),
                static_cast<uchar>(argb[3])};
    }

    std::unique_ptr<TestDesktop> m_desktop;
    Desktop m_capabilities;
    std::unique_ptr<QMenu> m_menu;
    std::unique_ptr<LinuxTray> m_tray;
};

QTEST_MAIN(LinuxTrayTest)
#include "LinuxTrayTest.moc"
