// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>

#include <functional>

/// Non-blocking calls to other programs on a bus.
namespace Bus
{
/// Sends @p call and later passes the reply or error to @p answered, unless @p context is deleted
/// first. @p bus must be connected: on a dead connection there would never be an answer.
void ask(const QDBusConnection &bus, const QDBusMessage &call, QObject *context,
         std::function<void(const QDBusMessage &reply)> answered, int timeoutMilliseconds = -1);
} // namespace Bus
