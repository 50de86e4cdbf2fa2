// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Tray.h"

#include <memory>

class SelectionOwner;
class StatusNotifierItem;
class StatusNotifierWatcher;
class ToolkitTray;

/// An item on the session bus for the StatusNotifier hosts of today's desktops; while there are
/// none, an icon in a tray of the old protocol on the X server.
class LinuxTray final : public Tray
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(LinuxTray)

public:
    LinuxTray();
    ~LinuxTray() override;

    void show(const Item &item) override;

private:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void exportItem();
    void waitForOldTray();
    void considerOldTray();
    void updateIcon();
    void popUpMenu(const QPoint &nativePlace) const;

    Item m_item;
    StatusNotifierItem *m_notifierItem = nullptr;
    StatusNotifierWatcher *m_watcher = nullptr;
    SelectionOwner *m_oldTray = nullptr;
    std::unique_ptr<ToolkitTray> m_oldIcon;
};
