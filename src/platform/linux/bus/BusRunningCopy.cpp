// SPDX-License-Identifier: MIT
#include "platform/linux/bus/BusRunningCopy.h"

#include "platform/linux/bus/Bus.h"

#include <QDBusConnection>

#include <chrono>
#include <utility>

namespace
{
const QString name = QStringLiteral("org.tovla.Tovla");
const QString path = QStringLiteral("/org/tovla/Tovla");
// A copy that is alive answers in milliseconds; one that was stopped keeps the name for ever.
constexpr std::chrono::milliseconds patience = std::chrono::seconds(3);

// What org.freedesktop.DBus.RequestName takes and answers.
constexpr uint doNotQueue = 4;
constexpr uint isOwnedByAnother = 3;
} // namespace

BusRunningCopy::BusRunningCopy()
    : m_wasStartedByBus(qEnvironmentVariableIsSet("DBUS_STARTER_BUS_TYPE"))
{
}

void BusRunningCopy::claim()
{
    if (!QDBusConnection::sessionBus().isConnected()) {
        QMetaObject::invokeMethod(this, &RunningCopy::isFirst, Qt::QueuedConnection);
        return;
    }
    // Before the name, so that whoever finds the name finds the object.
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
            emit isFirst();
        }
    });
}

void BusRunningCopy::askOtherToComeForward()
{
    auto activate = QDBusMessage::createMethodCall(
        name, path, QStringLiteral("org.freedesktop.Application"), QStringLiteral("Activate"));
    activate << QVariantMap{
        {QStringLiteral("desktop-startup-id"), qEnvironmentVariable("DESKTOP_STARTUP_ID")}};
    Bus::ask(
        QDBusConnection::sessionBus(), activate, this,
        [this](const QDBusMessage &reply) {
            if (reply.type() == QDBusMessage::ErrorMessage) {
                emit isStuck();
            } else {
                emit isAnother();
            }
        },
        static_cast<int>(patience.count()));
}

void BusRunningCopy::Activate(const QVariantMap &)
{
    if (!isTheLaunchItself()) {
        emit activated();
    }
}

void BusRunningCopy::Open(const QStringList &, const QVariantMap &)
{
    // The desktop entry names no kind of file, so there is nothing that could be meant.
    emit activated();
}

void BusRunningCopy::ActivateAction(const QString &action, const QVariantList &,
                                    const QVariantMap &)
{
    m_wasStartedByBus = false;
    emit actionRequested(action);
}

bool BusRunningCopy::isTheLaunchItself()
{
    return std::exchange(m_wasStartedByBus, false);
}
