// SPDX-License-Identifier: MIT
#include "platform/linux/portal/PortalSession.h"

#include "platform/linux/bus/Bus.h"
#include "platform/linux/portal/PortalRequest.h"

#include <QGuiApplication>
#include <QSessionManager>

namespace
{
const QString managerService = QStringLiteral("org.gnome.SessionManager");
const QString managerPath = QStringLiteral("/org/gnome/SessionManager");
// The flag for inhibiting log-out, the same for the portal and the session manager.
constexpr uint logout = 1;

QDBusMessage callOfManager(const QString &method)
{
    return QDBusMessage::createMethodCall(managerService, managerPath, managerService, method);
}

void endInhibition(uint cookie)
{
    auto call = callOfManager(QStringLiteral("Uninhibit"));
    call << cookie;
    QDBusConnection::sessionBus().send(call);
}
} // namespace

PortalSession::PortalSession()
{
    connect(qGuiApp, &QGuiApplication::commitDataRequest, this, &PortalSession::cancelLogoutIfHeld);
}

void PortalSession::hold(const QString &reason)
{
    if (m_isHeld) {
        return;
    }
    m_isHeld = true;
    ++m_hold;
    if (!QDBusConnection::sessionBus().isConnected()) {
        return;
    }
    constexpr uint noWindow = 0;
    auto call = callOfManager(QStringLiteral("Inhibit"));
    call << QStringLiteral("org.tovla.Tovla") << noWindow << reason << logout;
    Bus::ask(QDBusConnection::sessionBus(), call, this,
             [this, reason, hold = m_hold](const QDBusMessage &reply) {
                 const bool isHeld = reply.type() == QDBusMessage::ReplyMessage;
                 const bool isWanted = m_isHeld && hold == m_hold;
                 const uint cookie = reply.arguments().value(0).toUInt();
                 if (isHeld && isWanted) {
                     m_cookie = cookie;
                 } else if (isHeld) {
                     endInhibition(cookie);
                 } else if (isWanted) {
                     holdByPortal(reason);
                 }
             });
}

void PortalSession::holdByPortal(const QString &reason)
{
    const QString noWindow;
    m_request = new PortalRequest(QStringLiteral("org.freedesktop.portal.Inhibit"),
                                  QStringLiteral("Inhibit"), {noWindow, logout},
                                  {{QStringLiteral("reason"), reason}}, this);
    connect(m_request, &PortalRequest::failed, this, [this] {
        m_request->deleteLater();
        m_request.clear();
    });
}

void PortalSession::release()
{
    m_isHeld = false;
    if (m_request) {
        m_request->close();
        m_request.clear();
    }
    if (m_cookie) {
        endInhibition(*m_cookie);
        m_cookie.reset();
    }
}

void PortalSession::cancelLogoutIfHeld(QSessionManager &session) const
{
    if (m_isHeld && !m_cookie && session.allowsInteraction()) {
        session.cancel();
    }
}
