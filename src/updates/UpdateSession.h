// SPDX-License-Identifier: MIT
#pragma once

#include "platform/PackageManager.h"
#include "updates/UpdateState.h"

/// The logic of updating this program, independent of the package manager: which package and
/// source to accept, what to show before the installation, what can be cancelled, and the outcome.
/// Never blocks.
class UpdateSession final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(UpdateSession)

public:
    /// @p programPath is the file of the running program, @p version its version. @p packages is
    /// not used before the first check and must outlive this object.
    UpdateSession(PackageManager &packages, QString programPath, QString version);
    ~UpdateSession() override;

    [[nodiscard]] const UpdateState &state() const { return m_state; }

    /// Checks the system's software sources for a newer version. Does nothing while an operation is
    /// in progress.
    void check();
    /// Installs the available version. If other packages would change too, they are added to the
    /// state instead, and this must be called a second time.
    void install();
    /// Cancels the operation in progress, if the state allows it.
    void cancel();

signals:
    /// state() has changed.
    void changed();

private:
    using Outcome = PackageManager::Outcome;
    using Package = PackageManager::Package;

    void ownPackageFound(const Outcome &outcome, const std::optional<Package> &own);
    void refreshFinished(const Outcome &outcome);
    void newerVersionFound(const Outcome &outcome, const std::optional<Package> &newer);
    void updateFound(const Package &update);
    void releaseNotesFound(const Outcome &outcome, const QString &notes);
    void explainNoUpdate(const Outcome &outcome, const std::optional<Package> &own);
    void changesFound(const Outcome &outcome, const QList<PackageManager::Change> &changes);
    void installNow();
    void installationFinished(const Outcome &outcome);
    void verifyInstallation(const Outcome &outcome, const std::optional<Package> &own);

    /// A callback that passes an answer on to @p next, unless the operation was cancelled or the
    /// service is gone.
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
    /// The purpose of the operation in progress: checking or installing.
    UpdateState::Stage m_errand = UpdateState::Stage::idle;
    /// Whether the operation changes nothing, so that it can be abandoned at any time.
    bool m_canGiveUp = false;
    Package m_own;
    Package m_update;
    UpdateState m_offer;
    Outcome m_refresh;
};
