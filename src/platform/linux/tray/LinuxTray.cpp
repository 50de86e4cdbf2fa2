// SPDX-License-Identifier: MIT
#include "platform/linux/tray/LinuxTray.h"

#include "platform/Appearance.h"
#include "platform/generic/ToolkitTray.h"
#include "platform/linux/kernel/DesktopNames.h"
#include "platform/linux/menu/BusMenu.h"
#include "platform/linux/tray/ScreenPlace.h"
#include "platform/linux/tray/StatusNotifierItem.h"
#include "platform/linux/tray/StatusNotifierWatcher.h"
#include "platform/linux/x11/SelectionOwner.h"

#include <QCursor>
#include <QDBusConnection>
#include <QMenu>
#include <QTimer>

#include <chrono>

namespace
{
using namespace std::chrono_literals;

// At the start of a session, the panel may appear a little after us.
constexpr auto graceForHosts = 5s;

/// On Wayland, programs neither know the position of a click nor can open a menu there.
bool isWaylandSession()
{
    return qEnvironmentVariable("XDG_SESSION_TYPE") == u"wayland"
        || qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
}

/// A colour with good contrast on the panel, as far as that can be determined.
QColor foreground(const Appearance &appearance)
{
    // GNOME's top bar is dark in both of its looks.
    return isDesktop(u"GNOME") ? QColor(Qt::white) : ToolkitTray::foregroundIn(appearance);
}

/// Panels that draw a symbolic file as it is draw it dark on dark.
StatusNotifierItem::Host host()
{
    const bool recolours = isDesktop(u"GNOME") || isDesktop(u"KDE") || isDesktop(u"XFCE")
        || isDesktop(u"X-Cinnamon");
    return recolours ? StatusNotifierItem::Host::RecoloursTheFile
                     : StatusNotifierItem::Host::DrawsTheFile;
}

/// The panels of desktops made with our toolkit read shortcuts with it.
KeyNames keyNames()
{
    return isDesktop(u"KDE") || isDesktop(u"LXQt") ? KeyNames::Toolkit : KeyNames::X11;
}
} // namespace

LinuxTray::LinuxTray(const Appearance &appearance)
    : m_appearance(appearance)
{
    connect(&appearance, &Appearance::changed, this, &LinuxTray::updateIcon);
}

LinuxTray::~LinuxTray() = default;

void LinuxTray::show(const Item &item)
{
    m_item = item;
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
    bus.registerObject(BusMenu::path(), new BusMenu(*m_item.menu, keyNames(), this),
                       QDBusConnection::ExportScriptableContents);
    m_watcher = new StatusNotifierWatcher(bus, this);
    connect(m_watcher, &StatusNotifierWatcher::hostsChanged, this, [this] {
        if (m_watcher->hosts() == StatusNotifierWatcher::Hosts::Some) {
            m_oldIcon.reset();
        } else {
            waitForOldTray();
            tellWhenMissing();
        }
    });
}

void LinuxTray::tellWhenMissing()
{
    if (!m_wasMissing && m_watcher->hosts() == StatusNotifierWatcher::Hosts::None
        && !SelectionOwner("_NET_SYSTEM_TRAY_S").exists()) {
        m_wasMissing = true;
        emit foundMissing();
    }
}

// NOLINTNEXTLINE(readability-make-member-function-const): the timer's callback is not const
void LinuxTray::waitForOldTray()
{
    QTimer::singleShot(graceForHosts, this, &LinuxTray::considerOldTray);
}

void LinuxTray::considerOldTray()
{
    // If there is a watcher, the toolkit would call it and block until it answers.
    if (m_watcher && m_watcher->hosts() != StatusNotifierWatcher::Hosts::None) {
        return;
    }
    if (!m_oldTray) {
        m_oldTray = new SelectionOwner("_NET_SYSTEM_TRAY_S", this);
        connect(m_oldTray, &SelectionOwner::changed, this, &LinuxTray::considerOldTray);
    }
    if (m_oldTray->exists() && !m_oldIcon) {
        m_oldIcon = std::make_unique<ToolkitTray>(m_appearance, foreground);
        m_oldIcon->show(m_item);
    }
}

void LinuxTray::updateIcon()
{
    const QColor wanted = foreground(m_appearance);
    if (m_notifierItem && wanted != m_foreground) {
        m_foreground = wanted;
        m_notifierItem->setIcon(m_item.icon(wanted), host());
    }
}

void LinuxTray::popUpMenu(const QPoint &nativePlace) const
{
    // MATE tells every item the corner of the panel.
    const auto place = isDesktop(u"MATE") ? std::nullopt : logicalPlace(nativePlace);
    m_item.menu->popup(place.value_or(QCursor::pos()));
}
