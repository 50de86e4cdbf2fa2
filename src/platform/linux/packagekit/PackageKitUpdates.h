// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Updates.h"
#include "platform/linux/packagekit/PackageKitTransaction.h"

#include <QPointer>

/// Newer versions by way of PackageKit: the system's package manager looks for them in the sources
/// that the system follows, checks their signatures, asks for the password and installs them.
class PackageKitUpdates final : public Updates
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(PackageKitUpdates)

public:
    /// @p programPath is the program's own file as it was started, @p version the one that runs.
    /// Connects to nothing before the first check.
    PackageKitUpdates(QString programPath, QString version);

    [[nodiscard]] const UpdateState &state() const override { return m_state; }
    void check() override;
    void install() override;
    void cancel() override;

private:
    using Outcome = PackageKitTransaction::Outcome;
    /// What comes after a transaction that was neither cancelled nor cut off.
    using Next = std::function<void(const Outcome &)>;

    void connectToBus();
    void findOwnPackage();
    void refreshLists();
    void findUpdates();
    void takeUpdate(const PackageKitTransaction::Package &update);
    void describe(const PackageId &update);
    void explainNoUpdate();
    void simulate();
    void installNow();
    void verifyInstallation();

    void run(const QString &method, const QVariantList &arguments, Next next);
    void showProgress();
    [[nodiscard]] UpdateState::Stage stageOf(uint status) const;
    void enter(UpdateState::Stage stage);
    void fail(UpdateState::Failure failure, const QString &details);
    void failToRetrieve(const Outcome &outcome);
    void failToInstall(const Outcome &outcome);
    void offer();
    void set(const UpdateState &state);

    QString m_programPath;
    QString m_version;
    QDBusConnection m_bus;
    UpdateState m_state;
    QPointer<PackageKitTransaction> m_transaction;
    /// Of the transaction that is under way: checking, or installing.
    UpdateState::Stage m_errand = UpdateState::Stage::idle;
    /// Whether it changes nothing, so that it can be left to itself at any time.
    bool m_canGiveUp = false;
    bool m_isConnecting = false;
    PackageId m_own;
    PackageId m_update;
    UpdateState m_offer;
    Outcome m_refresh;
};
