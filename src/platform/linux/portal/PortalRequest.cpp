// SPDX-License-Identifier: MIT
#include "platform/linux/portal/PortalRequest.h"

#include "platform/linux/bus/Bus.h"
#include "platform/linux/portal/Portal.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusObjectPath>
#include <QDBusServiceWatcher>

#include <chrono>

namespace
{
const QString requestInterface = QStringLiteral("org.freedesktop.portal.Request");
// A portal accepts a request immediately, but may have to be started first.
constexpr std::chrono::milliseconds patience = std::chrono::seconds(5);

/// The object path that the portal will use for the request. Known in advance, so that its signals
/// can be connected before an answer can arrive.
QString expectedPath(const QDBusConnection &bus, const QString &token)
{
    const QString sender = bus.baseService().mid(1).replace(u'.', u'_');
    return Portal::path + QStringLiteral("/request/%1/%2").arg(sender, token);
}

QString newToken()
{
    static int count = 0;
    return QStringLiteral("tovla%1").arg(++count);
}
} // namespace

PortalRequest::PortalRequest(const QString &interface, const QString &method,
                             QVariantList arguments, QVariantMap options, QObject *parent)
    : QObject(parent)
{
    auto bus = QDBusConnection::sessionBus();
    const QString token = newToken();
    listenTo(expectedPath(bus, token));
    const auto *watcher = new QDBusServiceWatcher(
        Portal::service, bus, QDBusServiceWatcher::WatchForUnregistration, this);
    connect(watcher, &QDBusServiceWatcher::serviceUnregistered, this, &PortalRequest::failed);

    options.insert(QStringLiteral("handle_token"), token);
    arguments.append(options);
    auto call = QDBusMessage::createMethodCall(Portal::service, Portal::path, interface, method);
    call.setArguments(arguments);
    Bus::ask(
        bus, call, this, [this](const QDBusMessage &reply) { requestAnswered(reply); },
        static_cast<int>(patience.count()));
}

void PortalRequest::listenTo(const QString &path)
{
    m_path = path;
    QDBusConnection::sessionBus().connect(Portal::service, path, requestInterface,
                                          QStringLiteral("Response"), this,
                                          SLOT(responseReceived(QDBusMessage)));
}

void PortalRequest::requestAnswered(const QDBusMessage &reply)
{
    if (reply.type() != QDBusMessage::ReplyMessage) {
        // The portal may nonetheless have accepted the request, after the timeout.
        sendClose();
        emit failed();
        return;
    }
    const QString path = reply.arguments().value(0).value<QDBusObjectPath>().path();
    if (path != m_path) {
        listenTo(path);
    }
    m_isAccepted = true;
    if (m_isClosed) {
        sendClose();
        deleteLater();
    } else {
        emit accepted();
    }
}

void PortalRequest::responseReceived(const QDBusMessage &message)
{
    const QVariantList arguments = message.arguments();
    emit answered(arguments.value(0, 2U).toUInt(), qdbus_cast<QVariantMap>(arguments.value(1)));
}

void PortalRequest::close()
{
    m_isClosed = true;
    // Not disconnect(), which would also keep the bus from learning that this object is destroyed.
    blockSignals(true);
    // The portal does not know the path before it has accepted the request; requestAnswered() then
    // closes it.
    if (m_isAccepted) {
        sendClose();
        deleteLater();
    }
}

void PortalRequest::sendClose() const
{
    QDBusConnection::sessionBus().send(QDBusMessage::createMethodCall(
        Portal::service, m_path, requestInterface, QStringLiteral("Close")));
}
