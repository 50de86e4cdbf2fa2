// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

#include <optional>

/// The state of an update. Its data comes from the system's package manager: texts are plain text,
/// already shortened to a length that can be shown.
struct UpdateState {
    enum class Stage {
        idle,
        // In progress:
        checking,
        waitingForOthers,
        waitingForAuthorisation,
        downloading,
        installing,
        // Waiting for the user:
        available,
        // Finished:
        upToDate,
        updated,
        /// A version other than the running one has been installed by other means.
        replaced,
        failed,
    };
    enum class Failure {
        none,
        /// The program was not installed by the system's package manager.
        notManaged,
        /// The system has no software source that provides newer versions.
        noSource,
        /// There is no update service, it has ended or it does not answer.
        noService,
        offline,
        /// The list of newer versions could not be retrieved.
        notRetrieved,
        /// The list of newer versions is not signed as required.
        improperlySigned,
        /// The new version could not be downloaded, or does not match the list.
        notDownloaded,
        /// Other software is being installed.
        busy,
        notInstalled,
    };

    Stage stage = Stage::idle;
    Failure failure = Failure::none;
    /// The package manager's message about the failure, for those who can fix it.
    QString details{};
    /// The version that @c stage refers to: the newer one or the installed one.
    QString version{};
    QString releaseNotes{};
    /// Names of other packages that would change along with ours.
    QStringList otherPackages{};
    /// Whether the user was asked for authorisation and did not give it.
    bool wasNotAuthorised = false;
    /// Progress of the current step, 0 to 100; nullopt while unknown.
    std::optional<int> percentage{};
    /// In bytes; 0 while unknown.
    qint64 downloadedSize = 0;
    qint64 downloadSize = 0;
    bool canCancel = false;

    [[nodiscard]] bool isUnderWay() const
    {
        return stage > Stage::idle && stage < Stage::available;
    }
    bool operator==(const UpdateState &) const = default;
};
