// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Session.h"

#include <QObject>
#include <QPointer>

#include <optional>

class PortalRequest;
class QSessionManager;

/// The session, reached through GNOME's session manager, whose interface related desktops provide
/// too, or else through the portal. GNOME's portal forgets the requests of programs that D-Bus has
/// started (xdg-desktop-portal 1.20), and those of other desktops may accept them without effect:
/// without such a manager, a held session also cancels a logout through the X Session Management
/// Protocol.
class PortalSession final : public QObject, public Session
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(PortalSession)

public:
    PortalSession();

    void hold(const QString &reason) override;
    void release() override;

private:
    void holdByPortal(const QString &reason);
    void cancelLogoutIfHeld(QSessionManager &session) const;

    QPointer<PortalRequest> m_request;
    /// Identifies our inhibition to GNOME's session manager; nullopt while there is none.
    std::optional<uint> m_cookie;
    /// The number of the latest hold(): if an earlier one is answered after its release(), its
    /// inhibition is ended immediately.
    int m_hold = 0;
    bool m_isHeld = false;
};
