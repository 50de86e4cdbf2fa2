// SPDX-License-Identifier: MIT
#include "app/TovlaApp.h"

#include "core/AppState.h"
#include "look/DrawnAlerts.h"
#include "menubar/MenuContent.h"
#include "menubar/menuBarIcon.h"

#include <QGuiApplication>

#include <cstdio>
#include <cstdlib>
#include <utility>

namespace
{
const QString settingsAction = QStringLiteral("settings");
} // namespace

TovlaApp::TovlaApp()
{
    AppState &state = AppState::shared();
    if (!state.desktop().alerts) {
        state.setAlerts(std::make_unique<DrawnAlerts>(state.desktop()));
    }
    RunningCopy &runningCopy = *state.desktop().runningCopy;
    // Only the tray item is permanent, so closing the last window must not end the program.
    QGuiApplication::setQuitOnLastWindowClosed(false);
    setApplicationDelegate(&m_appDelegate);
    connect(&runningCopy, &RunningCopy::becameFirst, this, &TovlaApp::launch);
    connect(&runningCopy, &RunningCopy::foundAnother, qApp,
            [] { QCoreApplication::exit(EXIT_SUCCESS); });
    connect(&runningCopy, &RunningCopy::foundUnresponsive, qApp, [] {
        std::fputs("tovla: another copy is running but does not answer\n", stderr);
        QCoreApplication::exit(EXIT_FAILURE);
    });
    connect(&runningCopy, &RunningCopy::activated, this, [this] { request(settingsAction); });
    connect(&runningCopy, &RunningCopy::actionRequested, this, &TovlaApp::request);
    runningCopy.claim();
}

TovlaApp::~TovlaApp() = default;

void TovlaApp::launch()
{
    m_menu = std::make_unique<MenuContent>(AppState::shared());
    Tray &tray = *AppState::shared().desktop().tray;
    // Without an icon, a user who starts the program would think that it does not work, unless an
    // action opens something.
    if (AppState::shared().desktop().runningCopy->wasStartedByHand()) {
        connect(&tray, &Tray::foundMissing, this, [this] { request(settingsAction); });
    }
    tray.show({.id = QStringLiteral("tovla"),
               .title = QStringLiteral("Tovla"),
               .icon = MenuBarIcon::icon,
               .menu = m_menu.get()});
    m_appDelegate.applicationDidFinishLaunching();
    m_hasLaunched = true;
    const QStringList waiting = std::exchange(m_waiting, {});
    for (const QString &action : waiting) {
        perform(action);
    }
}

void TovlaApp::request(const QString &action)
{
    if (m_hasLaunched) {
        perform(action);
    } else {
        m_waiting.append(action);
    }
}

void TovlaApp::perform(const QString &action)
{
    disconnect(AppState::shared().desktop().tray.get(), &Tray::foundMissing, this, nullptr);
    if (action == u"write-now") {
        AppState::shared().showPrompt();
    } else if (action == settingsAction) {
        AppState::shared().showSettings();
    } else if (action == u"check-for-updates") {
        m_appDelegate.checkForUpdates();
    } else if (action == u"quit") {
        QCoreApplication::quit();
    }
}
