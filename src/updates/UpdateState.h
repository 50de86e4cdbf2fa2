// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

#include <optional>

/// How far a check for a newer version has come. Everything in it is data from the system's
/// software management: texts are plain and have been cut to a length that can be shown.
struct UpdateState {
    enum class Stage {
        idle,
        // Under way:
        checking,
        waitingForOthers,
        waitingForAuthorisation,
        downloading,
        installing,
        // Waiting for the user:
        available,
        // At the end:
        upToDate,
        updated,
        /// Somebody else has installed another version than the one that runs.
        replaced,
        failed,
    };
    enum class Failure {
        none,
        /// The program does not come from the system's package manager.
        notManaged,
        /// The system follows no source in which newer versions would be found.
        noSource,
        /// There is no update service, or it went away or does not answer.
        noService,
        offline,
        /// What newer versions there are could not be found out.
        notRetrieved,
        /// What newer versions there are was not signed as it must be.
        improperlySigned,
        /// The new version could not be had, or is not what was announced.
        notDownloaded,
        /// Other software is being installed.
        busy,
        notInstalled,
    };

    Stage stage = Stage::idle;
    Failure failure = Failure::none;
    /// What the engine says about the failure, for those who can mend it.
    QString details{};
    /// Of the version that @c stage is about: the newer one, or the one that is installed.
    QString version{};
    QString releaseNotes{};
    /// Names of other packages that would change with ours.
    QStringList otherPackages{};
    /// The user was asked for a password, and it came to nothing.
    bool wasNotAuthorised = false;
    /// Of the step under way, 0 to 100; nothing while that cannot be told.
    std::optional<int> percentage{};
    /// Of the download, in bytes; 0 while that cannot be told.
    qint64 downloadedSize = 0;
    qint64 downloadSize = 0;
    bool canCancel = false;

    [[nodiscard]] bool isUnderWay() const
    {
        return stage > Stage::idle && stage < Stage::available;
    }
    bool operator==(const UpdateState &) const = default;
};
