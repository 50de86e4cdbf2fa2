// SPDX-License-Identifier: MIT
#include "core/ApplicationDelegate.h"

#include <QCoreApplication>
#include <QPointer>
#include <QVariant>

namespace
{
constexpr auto delegateProperty = "tovlaDelegate";
} // namespace

QObject *applicationDelegate()
{
    return qApp->property(delegateProperty).value<QPointer<QObject>>();
}

void setApplicationDelegate(QObject *delegate)
{
    qApp->setProperty(delegateProperty, QVariant::fromValue(QPointer(delegate)));
}
