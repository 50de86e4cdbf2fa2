// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QtGlobal>

/// The user's session on the desktop, which a log-out ends.
class Session
{
public:
    Session() = default;
    virtual ~Session() = default;
    Q_DISABLE_COPY_MOVE(Session)

    /// Asks the desktop not to end the session before the user has agreed to lose something;
    /// @p reason tells them what. Returns at once, and holds until release().
    virtual void hold(const QString &reason) = 0;
    /// Takes hold() back; does nothing where nothing is held.
    virtual void release() = 0;
};
