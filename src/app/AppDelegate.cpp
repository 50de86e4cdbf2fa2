// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"

AppDelegate::AppDelegate(AppState &(*state)())
    : m_updaterController(state)
    , m_state(state)
{
}

void AppDelegate::applicationDidFinishLaunching()
{
    m_state().start();
}

void AppDelegate::checkForUpdates()
{
    m_updaterController.checkForUpdates();
}
