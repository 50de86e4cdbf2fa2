// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QObject>
#include <QString>

#include <functional>
#include <optional>

/// The operations of the system's package manager on a single package. It queries its sources,
/// checks signatures, asks for passwords and installs; its answers are interpreted elsewhere.
///
/// Nothing here blocks. One operation runs at a time. Its callback is called exactly once, possibly
/// before the function returns. Texts are shortened to a length that can be shown.
class PackageManager : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(PackageManager)

public:
    struct Package {
        /// The package manager's own identifier, passed back to it unchanged.
        QString id{};
        QString name{};
        /// The version of the package.
        QString version{};
        /// The version of the program in it, without what packagers add.
        QString programVersion{};
        /// Where it came from or would come from; empty if unknown.
        QString source{};
        /// Whether the package is known not to come from any of the system's sources.
        bool isWithoutSource = false;
        /// Whether the package manager is configured not to change the package.
        bool isHeldBack = false;
    };
    enum class Failure {
        none,
        cancelled,
        /// The service is not available or does not answer.
        noService,
        offline,
        /// Other software is being installed.
        busy,
        notAuthorised,
        /// The sources' package lists are not signed as required.
        improperlySigned,
        /// The package could not be downloaded, or does not match the list.
        notDownloaded,
        other,
    };
    struct Outcome {
        Failure failure = Failure::none;
        /// The package manager's message, for those who can fix the problem.
        QString details{};

        [[nodiscard]] bool succeeded() const { return failure == Failure::none; }
    };
    struct Change {
        QString name{};
        /// Whether the package would be installed anew, because the update needs it.
        bool isNew = false;
    };
    struct Progress {
        enum class Step { working, waitingForOthers, waitingForAuthorisation, downloading };

        Step step = Step::working;
        /// 0 to 100; nullopt while unknown.
        std::optional<int> percentage{};
        /// Bytes left to download.
        quint64 remainingSize = 0;
        bool allowsCancel = false;
    };

    using Done = std::function<void(const Outcome &)>;
    /// There may be a package even after a failure.
    using Found = std::function<void(const Outcome &, const std::optional<Package> &)>;
    using Told = std::function<void(const Outcome &, const QString &)>;
    using Listed = std::function<void(const Outcome &, const QList<Change> &)>;

    using QObject::QObject;

    /// Finds the installed package that the file at @p path belongs to.
    virtual void findPackageOf(const QString &path, Found found) = 0;
    /// Refreshes the package lists from all sources of the system.
    virtual void refreshSources(Done done) = 0;
    /// Finds a newer version of @p installed, by the package manager's order, in the package lists
    /// from the last refresh.
    virtual void findNewerVersion(const Package &installed, Found found) = 0;
    /// Finds the version of @p installed that is installed now.
    virtual void findInstalled(const Package &installed, Found found) = 0;
    /// Gets the release notes of @p update as plain text; empty if its source has none.
    virtual void readReleaseNotes(const Package &update, Told told) = 0;
    /// Lists the packages that @p update would change, including itself, without changing any.
    virtual void simulate(const Package &update, Listed listed) = 0;
    /// Installs @p update if it is signed as the system requires. Asks for authorisation if needed.
    virtual void install(const Package &update, Done done) = 0;

    /// Asks the current operation to stop, if its progress allows that. Its callback is still
    /// called.
    virtual void cancel() = 0;
    /// Makes sure that the callback of the current operation is not called.
    virtual void forget() = 0;

signals:
    /// The progress of the current operation.
    void progressed(const PackageManager::Progress &progress);
};
