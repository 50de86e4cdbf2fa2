// SPDX-License-Identifier: MIT
#pragma once

#include "platform/PackageManager.h"
#include "platform/linux/packagekit/PackageKitTransaction.h"

#include <QPointer>

/// Whatever package manager the system has, by way of PackageKit. Each operation is a transaction
/// of its own.
class PackageKit final : public PackageManager
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(PackageKit)

public:
    /// Connects to nothing before the first package is looked for.
    PackageKit();

    void findPackageOf(const QString &path, Found found) override;
    void refreshSources(Done done) override;
    void findNewerVersion(const Package &installed, Found found) override;
    void findInstalled(const Package &installed, Found found) override;
    void readReleaseNotes(const Package &update, Told told) override;
    void simulate(const Package &update, Listed listed) override;
    void install(const Package &update, Done done) override;
    void cancel() override;
    void forget() override;

private:
    using Finished = std::function<void(const PackageKitTransaction::Outcome &)>;

    void whenConnected(std::function<void()> action);
    void connectToBus();
    void run(const QString &method, const QVariantList &arguments, Finished finished);
    void tellProgress();

    QDBusConnection m_bus;
    bool m_isConnecting = false;
    /// What is done once there is a connection, or none can be had.
    std::function<void()> m_waiting;
    QPointer<PackageKitTransaction> m_transaction;
};
