// SPDX-License-Identifier: MIT
#include "platform/linux/tray/StatusNotifierWatcher.h"

#include "platform/linux/bus/Bus.h"

#include <QCoreApplication>
#include <QDBusError>
#include <QDBusServiceWatcher>
#include <QDBusVariant>

namespace
{
const QString service = QStringLiteral("org.kde.StatusNotifierWatcher");
const QString path = QStringLiteral("/StatusNotifierWatcher");

// A flag and results of org.freedesktop.DBus.RequestName.
constexpr uint doNotQueue = 4;
constexpr uint isOwner = 1;
constexpr uint wasOwner = 4;
} // namespace

StatusNotifierWatcher::StatusNotifierWatcher(const QDBusConnection &bus, QObject *parent)
    : QObject(parent)
    , m_bus(bus)
    , m_name(bus.baseService())
{
    claimName();
}

/// Cinnamon's watcher takes the item ":1.37" for gone when ":1.3" leaves the bus.
void StatusNotifierWatcher::claimName()
{
    const QString name
        = QStringLiteral("org.kde.StatusNotifierItem-%1-1").arg(QCoreApplication::applicationPid());
    auto request = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("RequestName"));
    request << name << doNotQueue;
    Bus::ask(m_bus, request, this, [this, name](const QDBusMessage &reply) {
        const uint outcome = reply.arguments().value(0).toUInt();
        if (outcome == isOwner || outcome == wasOwner) {
            m_name = name;
        }
        watch();
    });
}

void StatusNotifierWatcher::watch()
{
    const auto *owners
        = new QDBusServiceWatcher(service, m_bus, QDBusServiceWatcher::WatchForOwnerChange, this);
    connect(owners, &QDBusServiceWatcher::serviceOwnerChanged, this, &StatusNotifierWatcher::ask);
    // Without a member name, a single match rule covers all signals of the watcher.
    m_bus.connect(service, path, service, QString(), this, SLOT(watcherSignalled(QDBusMessage)));
    ask();
}

void StatusNotifierWatcher::watcherSignalled(const QDBusMessage &message)
{
    const bool isOfHosts = message.member() == u"StatusNotifierHostRegistered"
        || message.member() == u"StatusNotifierHostUnregistered";
    if (isOfHosts) {
        ask();
    }
}

void StatusNotifierWatcher::ask()
{
    auto question = QDBusMessage::createMethodCall(
        service, path, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
    question << service << QStringLiteral("IsStatusNotifierHostRegistered");
    const int number = ++m_question;
    Bus::ask(m_bus, question, this, [this, number](const QDBusMessage &reply) {
        if (number == m_question) {
            answerArrived(reply);
        }
    });
}

void StatusNotifierWatcher::answerArrived(const QDBusMessage &reply)
{
    if (reply.type() == QDBusMessage::ReplyMessage) {
        const bool hasHost = reply.arguments().value(0).value<QDBusVariant>().variant().toBool();
        setHosts(hasHost ? Hosts::Some : Hosts::None);
    } else {
        // A watcher that does not answer us may answer others, or answer later.
        const auto error = QDBusError(reply).type();
        setHosts(error == QDBusError::NoReply || error == QDBusError::Timeout ? Hosts::Unknown
                                                                              : Hosts::None);
    }
}

void StatusNotifierWatcher::setHosts(Hosts hosts)
{
    if (hosts == Hosts::Some) {
        // Registers each time: a new watcher does not know the item yet, and a host that started at
        // the same moment may have missed it. Watchers ignore repeated registrations.
        registerItem();
    }
    if (hosts != m_hosts) {
        m_hosts = hosts;
        emit hostsChanged();
    }
}

void StatusNotifierWatcher::registerItem()
{
    auto registration = QDBusMessage::createMethodCall(
        service, path, service, QStringLiteral("RegisterStatusNotifierItem"));
    registration << m_name;
    m_bus.send(registration);
}
