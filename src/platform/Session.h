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

    /// Asks the desktop not to log out, until release(), before the user has agreed to lose
    /// something; @p reason says what. Returns immediately. Does nothing if the session is already
    /// held, so it may be called on every keystroke, or if the desktop does not support it.
    virtual void hold(const QString &reason) = 0;
    /// Ends hold(); does nothing if the session is not held.
    virtual void release() = 0;
};
