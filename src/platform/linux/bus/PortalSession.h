// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Session.h"

#include <QObject>
#include <QPointer>

#include <optional>

class PortalRequest;

/// The session as the portal knows it, else as the session manager of GNOME and its relatives does.
class PortalSession final : public QObject, public Session
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(PortalSession)

public:
    PortalSession() = default;

    void hold(const QString &reason) override;
    void release() override;

private:
    void holdByManager(const QString &reason);

    QPointer<PortalRequest> m_request;
    /// By which the session manager lets go; nothing while it does not hold.
    std::optional<uint> m_cookie;
    /// Counts what was asked for: an answer to what was taken back meanwhile is taken back too.
    int m_hold = 0;
    bool m_isHeld = false;
};
