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
    findManager();
    const QString noWindow;
    m_request = new PortalRequest(QStringLiteral("org.freedesktop.portal.Inhibit"),
                                  QStringLiteral("Inhibit"), {noWindow, logout},
                                  {{QStringLiteral("reason"), reason}}, this);
    connect(m_request, &PortalRequest::failed, this, [this, reason] {
        m_request->deleteLater();
        m_request.clear();
        holdByManager(reason);
    });
}

void PortalSession::findManager()
{
    auto call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("NameHasOwner"));
    call << managerService;
    Bus::ask(QDBusConnection::sessionBus(), call, this, [this](const QDBusMessage &reply) {
        m_hasManager
            = reply.type() == QDBusMessage::ReplyMessage && reply.arguments().value(0).toBool();
    });
}

void PortalSession::holdByManager(const QString &reason)
{
    constexpr uint noWindow = 0;
    auto call = callOfManager(QStringLiteral("Inhibit"));
    call << QStringLiteral("org.tovla.Tovla") << noWindow << reason << logout;
    Bus::ask(QDBusConnection::sessionBus(), call, this,
             [this, hold = m_hold](const QDBusMessage &reply) {
                 if (reply.type() != QDBusMessage::ReplyMessage) {
                     return;
                 }
                 const uint cookie = reply.arguments().value(0).toUInt();
                 if (m_isHeld && hold == m_hold) {
                     m_cookie = cookie;
                 } else {
                     endInhibition(cookie);
                 }
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
    if (m_isHeld && !m_hasManager && session.allowsInteraction()) {
        session.cancel();
    }
}
