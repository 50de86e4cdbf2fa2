// SPDX-License-Identifier: MIT
#pragma once

#include "platform/PackageManager.h"
#include "platform/linux/packagekit/PackageKitTransaction.h"

#include <QPointer>

/// The system's package manager, accessed through PackageKit. Each operation is a transaction.
class PackageKit final : public PackageManager
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(PackageKit)

public:
    /// Does not connect to the bus before the first findPackageOf().
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
    void reportProgress();

    QDBusConnection m_bus;
    bool m_isConnecting = false;
    /// Called once the connection is established or has failed.
    std::function<void()> m_waiting;
    QPointer<PackageKitTransaction> m_transaction;
};
