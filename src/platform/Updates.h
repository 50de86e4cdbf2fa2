// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
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

/// The system's way to a newer version of this program. Nothing is installed that is not signed as
/// the system demands of the source which the program came from, and nothing here ever waits.
class Updates : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(Updates)

public:
    using QObject::QObject;

    [[nodiscard]] virtual const UpdateState &state() const = 0;

    /// Asks the sources of the system for a newer version; does nothing while something is under
    /// way.
    virtual void check() = 0;
    /// Installs the version that is available. Other packages that would change too are shown in
    /// the state first; then this has to be asked for once more.
    virtual void install() = 0;
    /// Gives up what is under way, where the state says that this is possible.
    virtual void cancel() = 0;

signals:
    /// state() is different now.
    void changed();
};
