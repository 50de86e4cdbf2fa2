// SPDX-License-Identifier: MIT
#include "core/TovlaApp.h"

#include "core/AppState.h"
#include "menubar/MenuContent.h"
#include "menubar/menuBarIcon.h"

#include <QCoreApplication>
#include <QCursor>
#include <QSystemTrayIcon>

#include <cstdio>
#include <cstdlib>

TovlaApp::TovlaApp()
    : m_runningCopy(RunningCopy::ofThisPlatform())
    , m_trayHost(TrayHost::ofThisPlatform())
{
    setApplicationDelegate(&m_appDelegate);
    connect(m_runningCopy.get(), &RunningCopy::isFirst, this, &TovlaApp::launch);
    connect(m_runningCopy.get(), &RunningCopy::isAnother, qApp,
            [] { QCoreApplication::exit(EXIT_SUCCESS); });
    connect(m_runningCopy.get(), &RunningCopy::isStuck, qApp, [] {
        std::fputs("tovla: another copy is running but does not answer\n", stderr);
        QCoreApplication::exit(EXIT_FAILURE);
    });
    m_runningCopy->claim();
}

TovlaApp::~TovlaApp() = default;

void TovlaApp::launch()
{
    connect(m_runningCopy.get(), &RunningCopy::activated, this,
            [] { AppState::shared().showSettings(); });
    connect(m_runningCopy.get(), &RunningCopy::actionRequested, this, &TovlaApp::perform);
    connect(m_trayHost.get(), &TrayHost::found, this, &TovlaApp::showTrayItem);
    connect(m_trayHost.get(), &TrayHost::settled, &m_appDelegate,
            &AppDelegate::applicationDidFinishLaunching);
    m_trayHost->find();
}

void TovlaApp::showTrayItem()
{
    m_trayItem = std::make_unique<QSystemTrayIcon>(MenuBarIcon::icon(m_trayHost->foreground()));
    connect(m_trayHost.get(), &TrayHost::foregroundChanged, m_trayItem.get(),
            [this] { m_trayItem->setIcon(MenuBarIcon::icon(m_trayHost->foreground())); });
    connect(m_trayItem.get(), &QSystemTrayIcon::activated, this,
            [this](QSystemTrayIcon::ActivationReason reason) {
                if (reason != QSystemTrayIcon::Context) {
                    popUpMenu();
                }
            });
    if (m_trayHost->drawsMenus()) {
        m_exportedMenu
            = std::make_unique<MenuContent>(AppState::shared(), MenuContent::Shown::ByTheDesktop);
        m_trayItem->setContextMenu(m_exportedMenu.get());
    } else {
        m_drawnMenu = std::make_unique<MenuContent>(AppState::shared(), MenuContent::Shown::ByUs);
        m_trayItem->setContextMenu(m_drawnMenu.get());
    }
    m_trayItem->show();
}

void TovlaApp::popUpMenu()
{
    if (!m_drawnMenu) {
        m_drawnMenu = std::make_unique<MenuContent>(AppState::shared(), MenuContent::Shown::ByUs);
    }
    m_drawnMenu->popup(QCursor::pos());
}

void TovlaApp::perform(const QString &action)
{
    if (action == u"write-now") {
        AppState::shared().showPrompt();
    } else if (action == u"settings") {
        AppState::shared().showSettings();
    } else if (action == u"check-for-updates") {
        m_appDelegate.updaterController().checkForUpdates();
    } else if (action == u"quit") {
        QCoreApplication::quit();
    }
}
