// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Tray.h"

#include <memory>

class Appearance;
class SelectionOwner;
class StatusNotifierItem;
class StatusNotifierWatcher;
class ToolkitTray;

/// A StatusNotifierItem on the session bus. While there is no host for it, an icon in the X
/// server's XEmbed tray.
class LinuxTray final : public Tray
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(LinuxTray)

public:
    /// @p appearance must outlive the tray.
    explicit LinuxTray(const Appearance &appearance);
    ~LinuxTray() override;

    void show(const Item &item) override;

private:
    void exportItem();
    void waitForOldTray();
    void considerOldTray();
    void tellWhenMissing();
    void updateIcon();
    void popUpMenu(const QPoint &nativePlace) const;

    const Appearance &m_appearance;
    Item m_item;
    QColor m_foreground;
    StatusNotifierItem *m_notifierItem = nullptr;
    StatusNotifierWatcher *m_watcher = nullptr;
    SelectionOwner *m_oldTray = nullptr;
    std::unique_ptr<ToolkitTray> m_oldIcon;
    bool m_wasMissing = false;
};
