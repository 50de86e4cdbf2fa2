// SPDX-License-Identifier: MIT
#include "platform/linux/SessionBus.h"

#include <QDBusConnection>
#include <QDBusPendingCallWatcher>

bool SessionBus::isConnected()
{
    return QDBusConnection::sessionBus().isConnected();
}

void SessionBus::ask(const QDBusMessage &call, QObject *context,
                     std::function<void(const QDBusMessage &reply)> answered,
                     int timeoutMilliseconds)
{
    auto *const watcher = new QDBusPendingCallWatcher(
        QDBusConnection::sessionBus().asyncCall(call, timeoutMilliseconds), context);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, context,
                     [watcher, answered = std::move(answered)] {
                         watcher->deleteLater();
                         answered(watcher->reply());
                     });
}
