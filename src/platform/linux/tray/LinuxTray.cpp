// SPDX-License-Identifier: MIT
#include "platform/linux/tray/LinuxTray.h"

#include "platform/generic/ToolkitTray.h"
#include "platform/linux/tray/BusMenu.h"
#include "platform/linux/tray/ScreenPlace.h"
#include "platform/linux/tray/StatusNotifierItem.h"
#include "platform/linux/tray/StatusNotifierWatcher.h"
#include "platform/linux/x11/SelectionOwner.h"

#include <QCursor>
#include <QDBusConnection>
#include <QEvent>
#include <QGuiApplication>
#include <QMenu>
#include <QTimer>

#include <chrono>

namespace
{
using namespace std::chrono_literals;

// While a session starts, its panel may come a little after us.
constexpr auto graceForHosts = 5s;

/// There no program can know the place of a click, nor open a menu at it.
bool isWaylandSession()
{
    return qEnvironmentVariable("XDG_SESSION_TYPE") == u"wayland"
        || qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
}

/// In which a picture is seen well on the panel, as far as that can be told.
QColor foreground()
{
    // GNOME's top bar is dark in both of its looks.
    const bool isGnome = qEnvironmentVariable("XDG_CURRENT_DESKTOP")
                             .split(u':')
                             .contains(QStringLiteral("GNOME"), Qt::CaseInsensitive);
    return isGnome ? QColor(Qt::white) : ToolkitTray::foregroundOfPalette();
}
} // namespace

LinuxTray::LinuxTray() = default;
LinuxTray::~LinuxTray() = default;

void LinuxTray::show(const Item &item)
{
    m_item = item;
    qGuiApp->installEventFilter(this);
    if (QDBusConnection::sessionBus().isConnected()) {
        exportItem();
    }
    waitForOldTray();
}

void LinuxTray::exportItem()
{
    registerStatusNotifierTypes();
    registerBusMenuTypes();
    m_notifierItem = new StatusNotifierItem(m_item.id, m_item.title, isWaylandSession(), this);
    connect(m_notifierItem, &StatusNotifierItem::menuWanted, this, &LinuxTray::popUpMenu);
    updateIcon();
    auto bus = QDBusConnection::sessionBus();
    bus.registerObject(StatusNotifierItem::path(), m_notifierItem,
                       QDBusConnection::ExportScriptableContents);
    bus.registerObject(BusMenu::path(), new BusMenu(*m_item.menu, this),
                       QDBusConnection::ExportScriptableContents);
    m_watcher = new StatusNotifierWatcher(bus, this);
    connect(m_watcher, &StatusNotifierWatcher::hostsChanged, this, [this] {
        if (m_watcher->hosts() == StatusNotifierWatcher::Hosts::Some) {
            m_oldIcon.reset();
        } else {
            waitForOldTray();
        }
    });
}

// NOLINTNEXTLINE(readability-make-member-function-const): what the timer calls changes this
void LinuxTray::waitForOldTray()
{
    QTimer::singleShot(graceForHosts, this, &LinuxTray::considerOldTray);
}

void LinuxTray::considerOldTray()
{
    // The toolkit would itself ask a watcher that is there, and wait for the answer.
    if (m_watcher && m_watcher->hosts() != StatusNotifierWatcher::Hosts::None) {
        return;
    }
    if (!m_oldTray) {
        m_oldTray = new SelectionOwner("_NET_SYSTEM_TRAY_S", this);
        connect(m_oldTray, &SelectionOwner::changed, this, &LinuxTray::considerOldTray);
    }
    if (m_oldTray->exists() && !m_oldIcon) {
        m_oldIcon = std::make_unique<ToolkitTray>(foreground);
        m_oldIcon->show(m_item);
    }
}

bool LinuxTray::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == qGuiApp && event->type() == QEvent::ApplicationPaletteChange) {
        updateIcon();
    }
    return false;
}

void LinuxTray::updateIcon()
{
    if (m_notifierItem) {
        m_notifierItem->setIcon(m_item.icon(foreground()));
    }
}

void LinuxTray::popUpMenu(const QPoint &nativePlace) const
{
    m_item.menu->popup(logicalPlace(nativePlace).value_or(QCursor::pos()));
}
