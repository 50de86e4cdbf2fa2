// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Session.h"

#include <QObject>
#include <QPointer>

#include <optional>

class PortalRequest;

/// The session, reached through the portal or, without a portal, through GNOME's session manager,
/// whose interface related desktops provide too.
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
    /// Identifies our inhibition to the session manager; nullopt while there is none.
    std::optional<uint> m_cookie;
    /// The number of the latest hold(): if an earlier one is answered after its release(), its
    /// inhibition is ended immediately.
    int m_hold = 0;
    bool m_isHeld = false;
};
