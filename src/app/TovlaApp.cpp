// SPDX-License-Identifier: MIT
#include "app/TovlaApp.h"

#include "core/AppState.h"
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
    : m_runningCopy(RunningCopy::ofThisPlatform())
{
    // The tray item is all that there always is; windows come and go.
    QGuiApplication::setQuitOnLastWindowClosed(false);
    setApplicationDelegate(&m_appDelegate);
    connect(m_runningCopy.get(), &RunningCopy::isFirst, this, &TovlaApp::launch);
    connect(m_runningCopy.get(), &RunningCopy::isAnother, qApp,
            [] { QCoreApplication::exit(EXIT_SUCCESS); });
    connect(m_runningCopy.get(), &RunningCopy::isStuck, qApp, [] {
        std::fputs("tovla: another copy is running but does not answer\n", stderr);
        QCoreApplication::exit(EXIT_FAILURE);
    });
    connect(m_runningCopy.get(), &RunningCopy::activated, this,
            [this] { request(settingsAction); });
    connect(m_runningCopy.get(), &RunningCopy::actionRequested, this, &TovlaApp::request);
    m_runningCopy->claim();
}

TovlaApp::~TovlaApp() = default;

void TovlaApp::launch()
{
    m_menu = std::make_unique<MenuContent>(AppState::shared());
    m_tray = Tray::ofThisPlatform();
    m_tray->show({.id = QStringLiteral("tovla"),
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
