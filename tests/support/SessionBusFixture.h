// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QProcess>
#include <QTest>

#include <functional>

/// Owns the name of a service on the session bus, and answers for all its objects.
class BusPeer final : public QDBusVirtualObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(BusPeer)

public:
    explicit BusPeer(const QString &service)
        : m_service(service)
        , m_bus(QDBusConnection::connectToBus(QDBusConnection::SessionBus, service))
    {
        m_bus.registerVirtualObject(QStringLiteral("/"), this, QDBusConnection::SubPath);
        m_bus.registerService(service);
    }
    ~BusPeer() override
    {
        m_bus.unregisterService(m_service);
        m_bus.unregisterObject(QStringLiteral("/"), QDBusConnection::UnregisterTree);
        QDBusConnection::disconnectFromBus(m_service);
    }

    void signal(const QString &path, const QString &interface, const QString &name,
                const QVariantList &arguments) const
    {
        auto signal = QDBusMessage::createSignal(path, interface, name);
        signal.setArguments(arguments);
        m_bus.send(signal);
    }
    void send(const QDBusMessage &message) const { m_bus.send(message); }
    /// The last call as "interface.method(signature)".
    [[nodiscard]] QString lastCall() const
    {
        const QDBusMessage call = calls.value(calls.size() - 1);
        return QStringLiteral("%1.%2(%3)").arg(call.interface(), call.member(), call.signature());
    }

    [[nodiscard]] QString introspect(const QString &) const override { return {}; }
    bool handleMessage(const QDBusMessage &call, const QDBusConnection &connection) override
    {
        calls.append(call);
        if (answer) {
            connection.send(answer(call));
        }
        return true;
    }

    QList<QDBusMessage> calls;
    /// The answer to a call. Without this, calls are left unanswered.
    std::function<QDBusMessage(const QDBusMessage &call)> answer;

private:
    QString m_service;
    QDBusConnection m_bus;
};

/// A private session bus for the tests of a class.
class SessionBusFixture : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(SessionBusFixture)

public:
    SessionBusFixture() = default;

private slots:
    void initTestCase()
    {
        m_bus.start(QStringLiteral("dbus-daemon"),
                    {QStringLiteral("--session"), QStringLiteral("--nofork"),
                     QStringLiteral("--print-address")});
        QTRY_VERIFY(m_bus.canReadLine());
        qputenv("DBUS_SESSION_BUS_ADDRESS", m_bus.readLine().trimmed());
        QVERIFY(QDBusConnection::sessionBus().isConnected());
    }
    void cleanupTestCase()
    {
        m_bus.kill();
        m_bus.waitForFinished();
    }

private:
    QProcess m_bus;
};
