// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Tray.h"

#include <memory>

class Appearance;
class QSystemTrayIcon;

/// The toolkit's tray icon, with the menu drawn by us. When the first icon is created, the toolkit
/// chooses a tray protocol for good, and may block on answers from other programs.
class ToolkitTray final : public Tray
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(ToolkitTray)

public:
    /// A colour with good contrast on a panel of that look.
    [[nodiscard]] static QColor foregroundIn(const Appearance &appearance);

    /// @p foreground returns the icon's colour; it is called again whenever @p appearance changes.
    /// @p appearance must outlive this object.
    explicit ToolkitTray(const Appearance &appearance,
                         std::function<QColor(const Appearance &)> foreground = &foregroundIn);
    ~ToolkitTray() override;

    void show(const Item &item) override;

private:
    void updateIcon();

    const Appearance &m_appearance;
    std::function<QColor(const Appearance &)> m_foreground;
    Item m_item;
    std::unique_ptr<QSystemTrayIcon> m_icon;
};
