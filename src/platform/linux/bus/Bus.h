// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>

#include <functional>

/// Questions to other programs on a bus that never make anybody wait.
namespace Bus
{
/// Sends @p call; @p answered gets the reply or the error later, unless @p context dies first.
/// Only to be used while @p bus is connected: a dead connection would never answer.
void ask(const QDBusConnection &bus, const QDBusMessage &call, QObject *context,
         std::function<void(const QDBusMessage &reply)> answered, int timeoutMilliseconds = -1);
} // namespace Bus
