// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Tray.h"

#include <memory>

class QSystemTrayIcon;

/// The toolkit's tray icon, with the menu that we draw. The toolkit decides for good, when the
/// first one is made, how it reaches the desktop, and may ask other programs and wait for their
/// answers.
class ToolkitTray final : public Tray
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(ToolkitTray)

public:
    /// In which a picture is seen well on a panel whose look follows the toolkit's palette.
    [[nodiscard]] static QColor foregroundOfPalette();

    /// @p foreground tells the colour of the icon, now and whenever the palette has changed.
    explicit ToolkitTray(std::function<QColor()> foreground = &foregroundOfPalette);
    ~ToolkitTray() override;

    void show(const Item &item) override;

private:
    bool eventFilter(QObject *watched, QEvent *event) override;

    std::function<QColor()> m_foreground;
    Item m_item;
    std::unique_ptr<QSystemTrayIcon> m_icon;
};
