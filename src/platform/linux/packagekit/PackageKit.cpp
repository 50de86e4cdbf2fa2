// SPDX-License-Identifier: MIT
#include "platform/linux/packagekit/PackageKit.h"

#include "platform/linux/packagekit/PackageKitAnswers.h"

#include <QFileInfo>
#include <QThread>

#include <algorithm>
#include <utility>

namespace
{
using Transaction = PackageKitTransaction;
using PackageKitAnswers::installation;
using PackageKitAnswers::retrieval;

// PackageKit's bit fields: 1 << the value in PK_FILTER_ENUM or PK_TRANSACTION_FLAG_ENUM.
constexpr qulonglong filterNone = 1U << 1U;
constexpr qulonglong filterInstalled = 1U << 2U;
constexpr qulonglong onlyTrusted = 1U << 1U;
constexpr qulonglong simulated = 1U << 2U;

QVariant bits(qulonglong value)
{
    return QVariant::fromValue(value);
}

std::optional<PackageManager::Package> packageNamed(const QList<Transaction::Package> &packages,
                                                    const QString &name)
{
    const auto found = std::ranges::find_if(
        packages, [&name](const auto &package) { return package.id.name() == name; });
    return found == packages.end() ? std::nullopt
                                   : std::optional(PackageKitAnswers::package(*found));
}
} // namespace

PackageKit::PackageKit()
    : m_bus(QStringLiteral("tovla-updates"))
{
}

void PackageKit::findPackageOf(const QString &path, Found found)
{
    if (QFileInfo::exists(QStringLiteral("/.flatpak-info"))) {
        found({}, {});
        return;
    }
    whenConnected([this, path, found = std::move(found)] {
        run(QStringLiteral("SearchFiles"), {bits(filterInstalled), QStringList{path}},
            [found](const Transaction::Outcome &outcome) {
                const auto &packages = outcome.packages;
                found(retrieval(outcome),
                      packages.isEmpty()
                          ? std::nullopt
                          : std::optional(PackageKitAnswers::package(packages.constFirst())));
            });
    });
}

void PackageKit::whenConnected(std::function<void()> action)
{
    if (m_bus.isConnected()) {
        action();
        return;
    }
    m_waiting = std::move(action);
    if (!std::exchange(m_isConnecting, true)) {
        connectToBus();
    }
}

void PackageKit::connectToBus()
{
    // Connects in another thread, because the toolkit blocks until the bus has answered.
    static int count = 0;
    const QString name = QStringLiteral("tovla-updates-%1").arg(++count);
    auto *const thread = QThread::create(
        [name] { QDBusConnection::connectToBus(QDBusConnection::SystemBus, name); });
    connect(thread, &QThread::finished, thread, &QObject::deleteLater);
    connect(thread, &QThread::finished, this, [this, name] {
        m_bus = QDBusConnection(name);
        m_isConnecting = false;
        if (const auto action = std::exchange(m_waiting, {})) {
            action();
        }
    });
    thread->start();
}

void PackageKit::refreshSources(Done done)
{
    run(QStringLiteral("RefreshCache"), {false},
        [done = std::move(done)](const Transaction::Outcome &outcome) {
            done(retrieval(outcome));
        });
}

void PackageKit::findNewerVersion(const Package &installed, Found found)
{
    run(QStringLiteral("GetUpdates"), {bits(filterNone)},
        [name = installed.name, found = std::move(found)](const Transaction::Outcome &outcome) {
            found(retrieval(outcome), packageNamed(outcome.packages, name));
        });
}

void PackageKit::findInstalled(const Package &installed, Found found)
{
    run(QStringLiteral("Resolve"), {bits(filterInstalled), QStringList{installed.name}},
        [name = installed.name, found = std::move(found)](const Transaction::Outcome &outcome) {
            found(retrieval(outcome), packageNamed(outcome.packages, name));
        });
}

void PackageKit::readReleaseNotes(const Package &update, Told told)
{
    run(QStringLiteral("GetUpdateDetail"), {QStringList{update.id}},
        [told = std::move(told)](const Transaction::Outcome &outcome) {
            told(retrieval(outcome), PackageKitAnswers::releaseNotes(outcome.updateDetail));
        });
}

void PackageKit::simulate(const Package &update, Listed listed)
{
    run(QStringLiteral("UpdatePackages"), {bits(onlyTrusted | simulated), QStringList{update.id}},
        [listed = std::move(listed)](const Transaction::Outcome &outcome) {
            QList<Change> changes;
            for (const Transaction::Package &package : outcome.packages) {
                changes.append({package.id.name(), package.info == Transaction::installing});
            }
            listed(installation(outcome), changes);
        });
}

void PackageKit::install(const Package &update, Done done)
{
    run(QStringLiteral("UpdatePackages"), {bits(onlyTrusted), QStringList{update.id}},
        [done = std::move(done)](const Transaction::Outcome &outcome) {
            done(installation(outcome));
        });
}

void PackageKit::cancel()
{
    if (m_transaction && m_transaction->progress().allowsCancel) {
        m_transaction->cancel();
    }
}

void PackageKit::forget()
{
    m_waiting = {};
    if (m_transaction) {
        m_transaction->forget();
    }
}

void PackageKit::run(const QString &method, const QVariantList &arguments, Finished finished)
{
    if (!m_bus.isConnected()) {
        Transaction::Outcome outcome;
        outcome.isServiceGone = true;
        outcome.errorText = m_bus.lastError().message();
        finished(outcome);
        return;
    }
    m_transaction = new Transaction(m_bus, method, arguments, std::move(finished), this);
    connect(m_transaction, &Transaction::progressChanged, this, &PackageKit::reportProgress);
}

void PackageKit::reportProgress()
{
    emit progressed(PackageKitAnswers::progress(m_transaction->progress()));
}
