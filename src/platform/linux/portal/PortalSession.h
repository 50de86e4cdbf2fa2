// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Session.h"

#include <QObject>
#include <QPointer>

#include <optional>

class PortalRequest;
class QSessionManager;

/// The session, reached through the portal or, without a portal, through GNOME's session manager,
/// whose interface related desktops provide too. Other portals accept the request without effect;
/// there, a held session cancels a logout through the X Session Management Protocol.
class PortalSession final : public QObject, public Session
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(PortalSession)

public:
    PortalSession();

    void hold(const QString &reason) override;
    void release() override;

private:
    void findManager();
    void holdByManager(const QString &reason);
    void cancelLogoutIfHeld(QSessionManager &session) const;

    QPointer<PortalRequest> m_request;
    /// Identifies our inhibition to the session manager; nullopt while there is none.
    std::optional<uint> m_cookie;
    /// The number of the latest hold(): if an earlier one is answered after its release(), its
    /// inhibition is ended immediately.
    int m_hold = 0;
    bool m_isHeld = false;
    /// Whether there is a session manager that asks the user itself. False until it has been found.
    bool m_hasManager = false;
};
