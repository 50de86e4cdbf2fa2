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
