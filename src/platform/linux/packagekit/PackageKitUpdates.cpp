// SPDX-License-Identifier: MIT
#include "platform/linux/packagekit/PackageKitUpdates.h"

#include "platform/linux/packagekit/PackageKitAnswers.h"

#include <QFileInfo>
#include <QThread>

#include <algorithm>

namespace
{
using Stage = UpdateState::Stage;
using Failure = UpdateState::Failure;
using Transaction = PackageKitTransaction;
using PackageKitAnswers::releaseNotes;
using PackageKitAnswers::sourceOf;
using PackageKitAnswers::upstreamVersion;

// Bit fields of PackageKit: 1 << the number in PK_FILTER_ENUM and PK_TRANSACTION_FLAG_ENUM.
constexpr qulonglong filterNone = 1U << 1U;
constexpr qulonglong filterInstalled = 1U << 2U;
constexpr qulonglong onlyTrusted = 1U << 1U;
constexpr qulonglong simulated = 1U << 2U;

QVariant bits(qulonglong value)
{
    return QVariant::fromValue(value);
}

const Transaction::Package *packageNamed(const QList<Transaction::Package> &packages,
                                         const QString &name)
{
    const auto found = std::ranges::find_if(
        packages, [&name](const auto &package) { return package.id.name() == name; });
    return found == packages.end() ? nullptr : &*found;
}

} // namespace

PackageKitUpdates::PackageKitUpdates(QString programPath, QString version)
    : m_programPath(std::move(programPath))
    , m_version(std::move(version))
    , m_bus(QStringLiteral("tovla-updates"))
{
}

void PackageKitUpdates::check()
{
    if (m_state.isUnderWay()) {
        return;
    }
    m_own = {};
    m_update = {};
    m_errand = Stage::checking;
    m_canGiveUp = true;
    UpdateState state{.stage = Stage::checking};
    state.canCancel = true;
    set(state);
    if (QFileInfo::exists(QStringLiteral("/.flatpak-info"))) {
        fail(Failure::notManaged, {});
    } else if (m_bus.isConnected()) {
        findOwnPackage();
    } else {
        connectToBus();
    }
}

void PackageKitUpdates::connectToBus()
{
    if (m_isConnecting) {
        return;
    }
    m_isConnecting = true;
    // The toolkit waits for the greeting of the bus that it connects to, so that is not done here.
    static int count = 0;
    const QString name = QStringLiteral("tovla-updates-%1").arg(++count);
    auto *const thread = QThread::create(
        [name] { QDBusConnection::connectToBus(QDBusConnection::SystemBus, name); });
    connect(thread, &QThread::finished, thread, &QObject::deleteLater);
    connect(thread, &QThread::finished, this, [this, name] {
        m_bus = QDBusConnection(name);
        m_isConnecting = false;
        if (m_state.stage != Stage::checking) {
            return;
        }
        if (m_bus.isConnected()) {
            findOwnPackage();
        } else {
            fail(Failure::noService, m_bus.lastError().message());
        }
    });
    thread->start();
}

void PackageKitUpdates::findOwnPackage()
{
    run(QStringLiteral("SearchFiles"), {bits(filterInstalled), QStringList{m_programPath}},
        [this](const Outcome &outcome) {
            if (!outcome.succeeded()) {
                failToRetrieve(outcome);
            } else if (outcome.packages.isEmpty()) {
                fail(Failure::notManaged, {});
            } else {
                m_own = outcome.packages.constFirst().id;
                if (upstreamVersion(m_own.version()) == m_version) {
                    refreshLists();
                } else {
                    enter(Stage::replaced);
                }
            }
        });
}

void PackageKitUpdates::refreshLists()
{
    run(QStringLiteral("RefreshCache"), {false}, [this](const Outcome &outcome) {
        // Another source of the machine may be the one that failed; ours may have been refreshed.
        m_refresh = outcome;
        findUpdates();
    });
}

void PackageKitUpdates::findUpdates()
{
    run(QStringLiteral("GetUpdates"), {bits(filterNone)}, [this](const Outcome &outcome) {
        if (!outcome.succeeded()) {
            failToRetrieve(outcome);
        } else if (const auto *const ours = packageNamed(outcome.packages, m_own.name())) {
            takeUpdate(*ours);
        } else if (!m_refresh.succeeded()) {
            failToRetrieve(m_refresh);
        } else {
            explainNoUpdate();
        }
    });
}

void PackageKitUpdates::takeUpdate(const PackageKitTransaction::Package &update)
{
    const QString source = sourceOf(m_own);
    if (update.info == Transaction::blocked) {
        fail(Failure::notRetrieved,
             QStringLiteral("%1 is held back by the package manager.").arg(update.id.text));
    } else if (!source.isEmpty() && source != update.id.data()) {
        // Somebody else's package of our name, however trusted.
        fail(Failure::noSource,
             QStringLiteral("%1, but this version came from %2.").arg(update.id.text, source));
    } else {
        describe(update.id);
    }
}

void PackageKitUpdates::describe(const PackageId &update)
{
    m_update = update;
    run(QStringLiteral("GetUpdateDetail"), {QStringList{update.text}},
        [this](const Outcome &outcome) {
            m_offer = {.stage = Stage::available};
            const QString upstream = upstreamVersion(m_update.version());
            m_offer.version = upstream == m_version ? m_update.version() : upstream;
            m_offer.releaseNotes = releaseNotes(outcome.updateDetail);
            offer();
        });
}

void PackageKitUpdates::explainNoUpdate()
{
    // Asked only now: before its first refresh a machine knows no source of any package.
    run(QStringLiteral("Resolve"), {bits(filterInstalled), QStringList{m_own.name()}},
        [this](const Outcome &outcome) {
            const auto *const ours = packageNamed(outcome.packages, m_own.name());
            if (!ours) {
                failToRetrieve(outcome);
            } else if (upstreamVersion(ours->id.version()) != m_version) {
                m_own = ours->id;
                enter(Stage::replaced);
            } else if (ours->id.data().endsWith(u":local") || ours->id.data() == u"local") {
                fail(Failure::noSource, {});
            } else {
                enter(Stage::upToDate);
            }
        });
}

void PackageKitUpdates::install()
{
    if (m_state.stage == Stage::available) {
        m_offer.wasNotAuthorised = false;
        m_errand = Stage::installing;
        simulate();
    }
}

void PackageKitUpdates::simulate()
{
    enter(Stage::installing);
    m_canGiveUp = true;
    run(QStringLiteral("UpdatePackages"),
        {bits(onlyTrusted | simulated), QStringList{m_update.text}},
        [this](const Outcome &outcome) {
            if (!outcome.succeeded()) {
                failToInstall(outcome);
                return;
            }
            QStringList others;
            for (const auto &package : outcome.packages) {
                const bool isNewDependency = package.info == Transaction::installing;
                if (package.id.name() != m_own.name() && !isNewDependency) {
                    others.append(package.id.name());
                }
            }
            others.sort();
            others.removeDuplicates();
            if (others.isEmpty() || others == m_offer.otherPackages) {
                installNow();
            } else {
                m_offer.otherPackages = others;
                offer();
            }
        });
}

void PackageKitUpdates::installNow()
{
    m_canGiveUp = false;
    run(QStringLiteral("UpdatePackages"), {bits(onlyTrusted), QStringList{m_update.text}},
        [this](const Outcome &outcome) {
            if (outcome.error == Transaction::notAuthorised) {
                m_offer.wasNotAuthorised = true;
                offer();
            } else if (outcome.succeeded()) {
                verifyInstallation();
            } else {
                failToInstall(outcome);
            }
        });
}

void PackageKitUpdates::verifyInstallation()
{
    // An update that PackageKit does not know is a success to it, with nothing done.
    run(QStringLiteral("Resolve"), {bits(filterInstalled), QStringList{m_own.name()}},
        [this](const Outcome &outcome) {
            const auto *const ours = packageNamed(outcome.packages, m_own.name());
            if (ours != nullptr && ours->id.version() == m_update.version()) {
                m_own = ours->id;
                enter(Stage::updated);
            } else {
                fail(Failure::notInstalled, outcome.errorText);
            }
        });
}

void PackageKitUpdates::cancel()
{
    if (!m_state.isUnderWay() || !m_state.canCancel) {
        return;
    }
    if (m_transaction && m_transaction->progress().allowsCancel) {
        m_transaction->cancel();
    }
    if (m_canGiveUp) {
        // Nothing hangs on how this ends; whatever it still says is not listened to.
        if (m_transaction) {
            m_transaction->forget();
        }
        set({});
    }
}

void PackageKitUpdates::run(const QString &method, const QVariantList &arguments, Next next)
{
    if (!m_bus.isConnected()) {
        fail(Failure::noService, {});
        return;
    }
    m_transaction = new Transaction(
        m_bus, method, arguments,
        [this, next = std::move(next)](const Outcome &outcome) {
            if (outcome.isServiceGone) {
                fail(Failure::noService, outcome.errorText);
            } else if (outcome.wasCancelled()) {
                set({});
            } else {
                next(outcome);
            }
        },
        this);
    connect(m_transaction, &Transaction::progressChanged, this, &PackageKitUpdates::showProgress);
    showProgress();
}

void PackageKitUpdates::showProgress()
{
    if (!m_state.isUnderWay()) {
        return;
    }
    const Transaction::Progress &progress = m_transaction->progress();
    UpdateState state{.stage = stageOf(progress.status)};
    const bool isMeasured = progress.status >= Transaction::statusDownload
        && progress.status <= Transaction::statusUpdate;
    if (isMeasured && progress.percentage < Transaction::unknownPercentage) {
        state.percentage = static_cast<int>(progress.percentage);
    }
    if (state.stage == Stage::downloading) {
        const auto remaining = static_cast<qint64>(progress.downloadSizeRemaining);
        state.downloadSize = qMax(m_state.downloadSize, remaining);
        state.downloadedSize = state.downloadSize - remaining;
    }
    state.canCancel = m_canGiveUp || progress.allowsCancel;
    set(state);
}

Stage PackageKitUpdates::stageOf(uint status) const
{
    switch (status) {
    case Transaction::waiting:
    case Transaction::waitingForLock:
        return Stage::waitingForOthers;
    case Transaction::waitingForAuthorisation:
        return Stage::waitingForAuthorisation;
    case Transaction::statusDownload:
        return m_errand == Stage::installing ? Stage::downloading : m_errand;
    default:
        return m_errand;
    }
}

void PackageKitUpdates::enter(Stage stage)
{
    UpdateState state{.stage = stage};
    state.version = upstreamVersion(m_own.version());
    set(state);
}

void PackageKitUpdates::offer()
{
    set(m_offer);
}

void PackageKitUpdates::fail(Failure failure, const QString &details)
{
    UpdateState state{.stage = Stage::failed, .failure = failure, .details = details};
    set(state);
}

void PackageKitUpdates::failToRetrieve(const Outcome &outcome)
{
    fail(PackageKitAnswers::retrievalFailure(outcome), outcome.errorText);
}

void PackageKitUpdates::failToInstall(const Outcome &outcome)
{
    fail(PackageKitAnswers::installationFailure(outcome), outcome.errorText);
}

void PackageKitUpdates::set(const UpdateState &state)
{
    if (m_state != state) {
        m_state = state;
        emit changed();
    }
}
