// SPDX-License-Identifier: MIT
#include "core/AppDelegate.h"

#include <QGuiApplication>
#include <QPointer>
#include <QVariant>

namespace
{
constexpr auto delegateProperty = "tovlaDelegate";
} // namespace

AppDelegate::AppDelegate(AppState &(*state)())
    : m_updaterController(state)
    , m_state(state)
{
}

void AppDelegate::applicationDidFinishLaunching()
{
    // The tray icon is all that there always is; windows come and go.
    QGuiApplication::setQuitOnLastWindowClosed(false);
    m_state().start();
}

QObject *applicationDelegate()
{
    return qApp->property(delegateProperty).value<QPointer<QObject>>();
}

void setApplicationDelegate(QObject *delegate)
{
    qApp->setProperty(delegateProperty, QVariant::fromValue(QPointer(delegate)));
}
