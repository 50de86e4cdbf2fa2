// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusMessage>
#include <QObject>

#include <functional>

/// Questions to other programs on the session bus that never make anybody wait.
namespace SessionBus
{
[[nodiscard]] bool isConnected();

/// Sends @p call; @p answered gets the reply or the error later, unless @p context dies first.
/// Only to be used while connected: a dead connection would never answer.
void ask(const QDBusMessage &call, QObject *context,
         std::function<void(const QDBusMessage &reply)> answered, int timeoutMilliseconds = -1);
} // namespace SessionBus
