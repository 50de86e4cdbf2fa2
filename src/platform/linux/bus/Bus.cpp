// SPDX-License-Identifier: MIT
#include "platform/linux/bus/Bus.h"

#include <QDBusPendingCallWatcher>

void Bus::ask(const QDBusConnection &bus, const QDBusMessage &call, QObject *context,
              std::function<void(const QDBusMessage &reply)> answered, int timeoutMilliseconds)
{
    auto *const watcher
        = new QDBusPendingCallWatcher(bus.asyncCall(call, timeoutMilliseconds), context);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, context,
                     [watcher, answered = std::move(answered)] {
                         watcher->deleteLater();
                         answered(watcher->reply());
                     });
}
