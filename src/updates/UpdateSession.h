// SPDX-License-Identifier: MIT
#pragma once

#include "platform/PackageManager.h"
#include "updates/UpdateState.h"

/// The way to a newer version of this program, and what may happen on it, whatever the package
/// manager: whose package it has to be, which source it may come from, what is shown before it is
/// installed, what may be cancelled and how it ends. Nothing here ever waits.
class UpdateSession final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(UpdateSession)

public:
    /// @p programPath is the program's own file as it was started, @p version the one that runs.
    /// Asks @p packages nothing before the first check; they must outlive this.
    UpdateSession(PackageManager &packages, QString programPath, QString version);
    ~UpdateSession() override;

    [[nodiscard]] const UpdateState &state() const { return m_state; }

    /// Asks the sources of the system for a newer version; does nothing while something is under
    /// way.
    void check();
    /// Installs the version that is available. Other packages that would change too are shown in
    /// the state first; then this has to be asked for once more.
    void install();
    /// Gives up what is under way, where the state says that this is possible.
    void cancel();

signals:
    /// state() is different now.
    void changed();

private:
    using Outcome = PackageManager::Outcome;
    using Package = PackageManager::Package;

    void takeOwnPackage(const Outcome &outcome, const std::optional<Package> &own);
    void takeRefresh(const Outcome &outcome);
    void takeNewerVersion(const Outcome &outcome, const std::optional<Package> &newer);
    void takeUpdate(const Package &update);
    void takeReleaseNotes(const Outcome &outcome, const QString &notes);
    void explainNoUpdate(const Outcome &outcome, const std::optional<Package> &own);
    void takeChanges(const Outcome &outcome, const QList<PackageManager::Change> &changes);
    void installNow();
    void takeInstallation(const Outcome &outcome);
    void verifyInstallation(const Outcome &outcome, const std::optional<Package> &own);

    /// What passes an answer on to @p next, unless the operation was cancelled or cut off.
    template <typename... Answer>
    std::function<void(const Outcome &, const Answer &...)>
    then(void (UpdateSession::*next)(const Outcome &, const Answer &...));

    void showProgress(const PackageManager::Progress &progress);
    [[nodiscard]] UpdateState::Stage stageOf(PackageManager::Progress::Step step) const;
    void enter(UpdateState::Stage stage);
    void offer();
    void fail(UpdateState::Failure failure, const QString &details);
    void failToRetrieve(const Outcome &outcome);
    void failToInstall(const Outcome &outcome);
    void set(const UpdateState &state);

    PackageManager &m_packages;
    QString m_programPath;
    QString m_version;
    UpdateState m_state;
    /// What the operation that is under way is for: checking, or installing.
    UpdateState::Stage m_errand = UpdateState::Stage::idle;
    /// Whether it changes nothing, so that it can be left to itself at any time.
    bool m_canGiveUp = false;
    Package m_own;
    Package m_update;
    UpdateState m_offer;
    Outcome m_refresh;
};
