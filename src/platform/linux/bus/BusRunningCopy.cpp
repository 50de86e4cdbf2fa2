// SPDX-License-Identifier: MIT
#include "platform/linux/bus/BusRunningCopy.h"

#include "platform/linux/bus/ActivationToken.h"
#include "platform/linux/bus/Bus.h"

#include <QDBusConnection>

#include <chrono>
#include <utility>

namespace
{
const QString name = QStringLiteral("org.tovla.Tovla");
const QString path = QStringLiteral("/org/tovla/Tovla");
// How long to wait for the running copy. It answers within milliseconds, but a suspended one keeps
// the name and never answers.
constexpr std::chrono::milliseconds patience = std::chrono::seconds(3);

// A flag and a result of org.freedesktop.DBus.RequestName.
constexpr uint doNotQueue = 4;
constexpr uint isOwnedByAnother = 3;

bool wasStartedByBus()
{
    return qEnvironmentVariableIsSet("DBUS_STARTER_BUS_TYPE");
}

QString &startupId()
{
    static QString id;
    return id;
}

// The key of org.freedesktop.Application's platform data.
const QString tokenKey = QStringLiteral("activation-token");

void adoptToken(const QVariantMap &platformData)
{
    ActivationToken::adopt(platformData.value(tokenKey).toString());
}
} // namespace

void BusRunningCopy::prepare()
{
    startupId() = qEnvironmentVariable("DESKTOP_STARTUP_ID");
}

BusRunningCopy::BusRunningCopy()
    : m_wasStartedByHand(wasStartedByBus() || !ActivationToken::unused().isEmpty()
                         || !startupId().isEmpty())
    , m_ignoresNextActivation(wasStartedByBus())
{
}

void BusRunningCopy::claim()
{
    if (!QDBusConnection::sessionBus().isConnected()) {
        QMetaObject::invokeMethod(this, &RunningCopy::becameFirst, Qt::QueuedConnection);
        return;
    }
    // Registers the object before the name, so that it exists as soon as the name does.
    QDBusConnection::sessionBus().registerObject(path, this, QDBusConnection::ExportAllSlots);
    auto request = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("RequestName"));
    request << name << doNotQueue;
    Bus::ask(QDBusConnection::sessionBus(), request, this, [this](const QDBusMessage &reply) {
        const uint outcome = reply.arguments().value(0).toUInt();
        if (reply.type() == QDBusMessage::ReplyMessage && outcome == isOwnedByAnother) {
            askOtherToComeForward();
        } else {
            emit becameFirst();
        }
    });
}

void BusRunningCopy::askOtherToComeForward()
{
    auto activate = QDBusMessage::createMethodCall(
        name, path, QStringLiteral("org.freedesktop.Application"), QStringLiteral("Activate"));
    activate << QVariantMap{{QStringLiteral("desktop-startup-id"), startupId()},
                            {tokenKey, ActivationToken::unused()}};
    Bus::ask(
        QDBusConnection::sessionBus(), activate, this,
        [this](const QDBusMessage &reply) {
            if (reply.type() == QDBusMessage::ErrorMessage) {
                emit foundUnresponsive();
            } else {
                emit foundAnother();
            }
        },
        static_cast<int>(patience.count()));
}

void BusRunningCopy::Activate(const QVariantMap &platformData)
{
    adoptToken(platformData);
    if (!std::exchange(m_ignoresNextActivation, false)) {
        emit activated();
    }
}

void BusRunningCopy::Open(const QStringList &, const QVariantMap &platformData)
{
    adoptToken(platformData);
    // The desktop entry declares no file types, so there is nothing to open.
    emit activated();
}

void BusRunningCopy::ActivateAction(const QString &action, const QVariantList &,
                                    const QVariantMap &platformData)
{
    adoptToken(platformData);
    m_ignoresNextActivation = false;
    emit actionRequested(action);
}
