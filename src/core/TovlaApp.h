// SPDX-License-Identifier: MIT
#pragma once

#include "core/AppDelegate.h"
#include "platform/RunningCopy.h"
#include "platform/TrayHost.h"

#include <QObject>

#include <memory>

class MenuContent;
class QSystemTrayIcon;

/// The application: its delegate and the tray item with its menu, put together in the order in
/// which a user sees them. Lives as long as the application object.
class TovlaApp final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(TovlaApp)

public:
    TovlaApp();
    ~TovlaApp() override;

private:
    void launch();
    void showTrayItem();
    void popUpMenu();
    void perform(const QString &action);

    AppDelegate m_appDelegate;
    std::unique_ptr<RunningCopy> m_runningCopy;
    std::unique_ptr<TrayHost> m_trayHost;
    // The item does not own its menus and must go before them.
    std::unique_ptr<MenuContent> m_exportedMenu;
    std::unique_ptr<MenuContent> m_drawnMenu;
    std::unique_ptr<QSystemTrayIcon> m_trayItem;
};
