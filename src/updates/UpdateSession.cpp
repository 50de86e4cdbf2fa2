// SPDX-License-Identifier: MIT
#include "updates/UpdateSession.h"

#include <limits>
#include <utility>

namespace
{
using Stage = UpdateState::Stage;
using Failure = UpdateState::Failure;
using Trouble = PackageManager::Failure;
using Step = PackageManager::Progress::Step;

/// Why the check for newer versions failed.
Failure retrievalFailure(Trouble trouble)
{
    switch (trouble) {
    case Trouble::offline:
        return Failure::offline;
    case Trouble::busy:
        return Failure::busy;
    case Trouble::improperlySigned:
        return Failure::improperlySigned;
    default:
        return Failure::notRetrieved;
    }
}

/// Why the installation failed.
Failure installationFailure(Trouble trouble)
{
    switch (trouble) {
    case Trouble::offline:
        return Failure::offline;
    case Trouble::busy:
        return Failure::busy;
    case Trouble::improperlySigned:
    case Trouble::notDownloaded:
        return Failure::notDownloaded;
    default:
        return Failure::notInstalled;
    }
}

/// Limits a size reported by the package manager to the range of a signed integer.
qint64 countable(quint64 size)
{
    constexpr auto largest = quint64{std::numeric_limits<qint64>::max()};
    return static_cast<qint64>(qMin(size, largest));
}
} // namespace

UpdateSession::UpdateSession(PackageManager &packages, QString programPath, QString version)
    : m_packages(packages)
    , m_programPath(std::move(programPath))
    , m_version(std::move(version))
{
    connect(&m_packages, &PackageManager::progressed, this, &UpdateSession::showProgress);
}

UpdateSession::~UpdateSession()
{
    m_packages.forget();
}

template <typename... Answer>
std::function<void(const PackageManager::Outcome &, const Answer &...)>
UpdateSession::then(void (UpdateSession::*next)(const Outcome &, const Answer &...))
{
    return [this, next](const Outcome &outcome, const Answer &...answer) {
        if (outcome.failure == Trouble::noService) {
            fail(Failure::noService, outcome.details);
        } else if (outcome.failure == Trouble::cancelled) {
            set({});
        } else {
            (this->*next)(outcome, answer...);
        }
    };
}

void UpdateSession::check()
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
    m_packages.findPackageOf(m_programPath, then(&UpdateSession::ownPackageFound));
}

void UpdateSession::ownPackageFound(const Outcome &outcome, const std::optional<Package> &own)
{
    if (!outcome.succeeded()) {
        failToRetrieve(outcome);
    } else if (!own) {
        fail(Failure::notManaged, {});
    } else {
        m_own = *own;
        if (m_own.programVersion == m_version) {
            showProgress({});
            m_packages.refreshSources(then(&UpdateSession::refreshFinished));
        } else {
            enter(Stage::replaced);
        }
    }
}

void UpdateSession::refreshFinished(const Outcome &outcome)
{
    // Continues even after a failure, because another source may have failed while ours was
    // refreshed.
    m_refresh = outcome;
    showProgress({});
    m_packages.findNewerVersion(m_own, then(&UpdateSession::newerVersionFound));
}

void UpdateSession::newerVersionFound(const Outcome &outcome, const std::optional<Package> &newer)
{
    if (!outcome.succeeded()) {
        failToRetrieve(outcome);
    } else if (newer) {
        updateFound(*newer);
    } else if (!m_refresh.succeeded()) {
        failToRetrieve(m_refresh);
    } else {
        // Queried only now, because the system knows no sources of packages before the first
        // refresh.
        showProgress({});
        m_packages.findInstalled(m_own, then(&UpdateSession::explainNoUpdate));
    }
}

void UpdateSession::updateFound(const Package &update)
{
    if (update.isHeldBack) {
        fail(Failure::notRetrieved,
             QStringLiteral("%1 is held back by the package manager.").arg(update.id));
    } else if (!m_own.source.isEmpty() && m_own.source != update.source) {
        // Refuses a package of the same name from another source, even a trusted one.
        fail(Failure::noSource,
             QStringLiteral("%1, but this version came from %2.").arg(update.id, m_own.source));
    } else {
        m_update = update;
        showProgress({});
        m_packages.readReleaseNotes(m_update, then(&UpdateSession::releaseNotesFound));
    }
}

void UpdateSession::releaseNotesFound(const Outcome &, const QString &notes)
{
    const bool isBuiltAnew = m_update.programVersion == m_version;
    m_offer = {.stage = Stage::available};
    m_offer.version = isBuiltAnew ? m_update.version : m_update.programVersion;
    m_offer.releaseNotes = notes;
    offer();
}

void UpdateSession::explainNoUpdate(const Outcome &outcome, const std::optional<Package> &own)
{
    if (!own) {
        failToRetrieve(outcome);
    } else if (own->programVersion != m_version) {
        m_own = *own;
        enter(Stage::replaced);
    } else if (own->isWithoutSource) {
        fail(Failure::noSource, {});
    } else {
        enter(Stage::upToDate);
    }
}

void UpdateSession::install()
{
    if (m_state.stage != Stage::available) {
        return;
    }
    m_offer.wasNotAuthorised = false;
    m_errand = Stage::installing;
    m_canGiveUp = true;
    enter(Stage::installing);
    showProgress({});
    m_packages.simulate(m_update, then(&UpdateSession::changesFound));
}

void UpdateSession::changesFound(const Outcome &outcome,
                                 const QList<PackageManager::Change> &changes)
{
    if (!outcome.succeeded()) {
        failToInstall(outcome);
        return;
    }
    QStringList others;
    for (const PackageManager::Change &change : changes) {
        if (change.name != m_own.name && !change.isNew) {
            others.append(change.name);
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
}

void UpdateSession::installNow()
{
    m_canGiveUp = false;
    showProgress({});
    m_packages.install(m_update, then(&UpdateSession::installationFinished));
}

void UpdateSession::installationFinished(const Outcome &outcome)
{
    if (outcome.failure == Trouble::notAuthorised) {
        m_offer.wasNotAuthorised = true;
        offer();
    } else if (outcome.succeeded()) {
        // A package manager may report success even if it did nothing.
        showProgress({});
        m_packages.findInstalled(m_own, then(&UpdateSession::verifyInstallation));
    } else {
        failToInstall(outcome);
    }
}

void UpdateSession::verifyInstallation(const Outcome &outcome, const std::optional<Package> &own)
{
    if (own && own->version == m_update.version) {
        m_own = *own;
        enter(Stage::updated);
    } else {
        fail(Failure::notInstalled, outcome.details);
    }
}

void UpdateSession::cancel()
{
    if (!m_state.isUnderWay() || !m_state.canCancel) {
        return;
    }
    m_packages.cancel();
    if (m_canGiveUp) {
        // The outcome no longer matters, so further answers are ignored.
        m_packages.forget();
        set({});
    }
}

void UpdateSession::showProgress(const PackageManager::Progress &progress)
{
    if (!m_state.isUnderWay()) {
        return;
    }
    UpdateState state{.stage = stageOf(progress.step)};
    state.percentage = progress.percentage;
    if (state.stage == Stage::downloading) {
        const qint64 remaining = countable(progress.remainingSize);
        state.downloadSize = qMax(m_state.downloadSize, remaining);
        state.downloadedSize = state.downloadSize - remaining;
    }
    state.canCancel = m_canGiveUp || progress.allowsCancel;
    set(state);
}

Stage UpdateSession::stageOf(Step step) const
{
    switch (step) {
    case Step::waitingForOthers:
        return Stage::waitingForOthers;
    case Step::waitingForAuthorisation:
        return Stage::waitingForAuthorisation;
    case Step::downloading:
        return m_errand == Stage::installing ? Stage::downloading : m_errand;
    default:
        return m_errand;
    }
}

void UpdateSession::enter(Stage stage)
{
    UpdateState state{.stage = stage};
    state.version = m_own.programVersion;
    set(state);
}

void UpdateSession::offer()
{
    set(m_offer);
}

void UpdateSession::fail(Failure failure, const QString &details)
{
    UpdateState state{.stage = Stage::failed, .failure = failure, .details = details};
    set(state);
}

void UpdateSession::failToRetrieve(const Outcome &outcome)
{
    fail(retrievalFailure(outcome.failure), outcome.details);
}

void UpdateSession::failToInstall(const Outcome &outcome)
{
    fail(installationFailure(outcome.failure), outcome.details);
}

void UpdateSession::set(const UpdateState &state)
{
    if (m_state != state) {
        m_state = state;
        emit changed();
    }
}
