// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/packagekit/PackageKit.h"
#include "support/EventLoopMeter.h"
#include "updates/UpdateSession.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTest>

#include <memory>

/// An update session that uses PackageKit, with a stand-in for the daemon (support/packagekit.py)
/// on a private bus.
class PackageKitFixture : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(PackageKitFixture)

public:
    PackageKitFixture() = default;

protected:
    using Stage = UpdateState::Stage;
    using Failure = UpdateState::Failure;

    static QString installedId()
    {
        return QStringLiteral("tovla;1.0;amd64;manual:tovla-stable-main");
    }
    static QString updateId() { return QStringLiteral("tovla;1.1;amd64;tovla-stable-main"); }

    static QJsonObject package(const QString &id, int info = 1)
    {
        // With clang, braces around a single array would copy it instead of nesting it.
        QJsonArray packages;
        packages.append(QJsonArray{info, id});
        return {{QStringLiteral("packages"), packages}};
    }
    static QJsonObject error(int code, const QString &text)
    {
        return {{QStringLiteral("error"), QJsonArray{code, text}}};
    }
    static QJsonObject then(const QString &what) { return {{QStringLiteral("then"), what}}; }

    [[nodiscard]] const UpdateState &state() const { return m_updates->state(); }

    void check()
    {
        startStandIn();
        m_meter.start();
        m_updates->check();
        QVERIFY(state().isUnderWay());
        QTRY_VERIFY(!state().isUnderWay());
    }
    void install()
    {
        m_updates->install();
        QTRY_VERIFY(!state().isUnderWay());
    }

    void startStandIn()
    {
        const auto scenario = QJsonDocument(m_scenario).toJson(QJsonDocument::Compact);
        m_standIn.start(QStringLiteral("/usr/bin/python3"),
                        {QStringLiteral(TOVLA_SOURCE_DIR "/tests/support/packagekit.py"),
                         QString::fromUtf8(scenario)});
        QTRY_VERIFY(m_standIn.canReadLine());
        QCOMPARE(m_standIn.readLine(), "ready\n");
        m_calls.clear();
    }

    void endStandIn() { end(m_standIn); }

    /// The methods called so far, without the hints before each of them.
    QStringList calls()
    {
        while (m_standIn.canReadLine()) {
            const QString line = QString::fromUtf8(m_standIn.readLine()).trimmed();
            if (!line.startsWith(u"[\"SetHints\"")) {
                m_calls.append(line);
            }
        }
        return m_calls;
    }

    QProcess m_bus;
    QJsonObject m_scenario;
    EventLoopMeter m_meter;
    std::unique_ptr<PackageKit> m_packageKit;
    std::unique_ptr<UpdateSession> m_updates;

private slots:
    void initTestCase()
    {
        m_bus.start(QStringLiteral("dbus-daemon"),
                    {QStringLiteral("--session"), QStringLiteral("--nofork"),
                     QStringLiteral("--print-address")});
        QTRY_VERIFY(m_bus.canReadLine());
        qputenv("DBUS_SYSTEM_BUS_ADDRESS", m_bus.readLine().trimmed());
    }
    void init()
    {
        m_scenario = scenario();
        m_packageKit = std::make_unique<PackageKit>();
        m_updates = std::make_unique<UpdateSession>(*m_packageKit, QStringLiteral("/usr/bin/tovla"),
                                                    QStringLiteral("1.0"));
    }
    void cleanup()
    {
        m_updates.reset();
        m_packageKit.reset();
        endStandIn();
        QVERIFY2(m_meter.longestTurn() < EventLoopMeter::frame,
                 qPrintable(QStringLiteral("%1 µs").arg(m_meter.longestTurn().count() / 1000)));
    }
    void cleanupTestCase() { end(m_bus); }

private:
    /// Version 1.0 is installed, 1.1 is available with notes, and installing it works.
    static QJsonObject scenario()
    {
        const QJsonObject notes{
            {QStringLiteral("detail"),
             QJsonArray{QString(), QStringLiteral("tovla (1.1) any; x\n\n * New bells.")}}};
        return {
            {QStringLiteral("SearchFiles"), QJsonArray{package(installedId())}},
            {QStringLiteral("GetUpdates"), QJsonArray{package(updateId(), 5 << 16 | 5)}},
            {QStringLiteral("GetUpdateDetail"), QJsonArray{notes}},
            {QStringLiteral("Simulate"), QJsonArray{package(updateId(), 11)}},
            {QStringLiteral("Resolve"),
             QJsonArray{package(QStringLiteral("tovla;1.1;amd64;manual:tovla-stable-main"))}},
        };
    }
    static void end(QProcess &process)
    {
        process.kill();
        process.waitForFinished();
    }

    QProcess m_standIn;
    QStringList m_calls;
};
