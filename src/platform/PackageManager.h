// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QObject>
#include <QString>

#include <functional>
#include <optional>

/// The system's package manager, as far as one package goes. It looks into its sources, checks
/// signatures, asks for passwords and installs; what its answers mean is decided elsewhere.
///
/// Nothing here waits. One operation runs at a time; its callback gets the outcome once, whatever
/// happens, and may get it before the operation returns. Texts have been cut to a length that can
/// be shown.
class PackageManager : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(PackageManager)

public:
    struct Package {
        /// The package manager's own words for it, handed back to it as they are.
        QString id{};
        QString name{};
        /// As the package manager counts.
        QString version{};
        /// Of the program that is in it: without what packagers add to the version.
        QString programVersion{};
        /// Where it came from, or would come from; empty where that is not known.
        QString source{};
        /// It is known to have come from no source that the system follows.
        bool isWithoutSource = false;
        /// The package manager was told to leave it as it is.
        bool isHeldBack = false;
    };
    enum class Failure {
        none,
        cancelled,
        /// Nobody answers, or not any more.
        noService,
        offline,
        /// Other software is being installed.
        busy,
        notAuthorised,
        /// What the sources say is not signed as it must be.
        improperlySigned,
        /// The package could not be had, or is not what was announced.
        notDownloaded,
        other,
    };
    struct Outcome {
        Failure failure = Failure::none;
        /// What the package manager says about it, for those who can mend it.
        QString details{};

        [[nodiscard]] bool succeeded() const { return failure == Failure::none; }
    };
    struct Change {
        QString name{};
        /// It is installed only because the update needs it.
        bool isNew = false;
    };
    struct Progress {
        enum class Step { working, waitingForOthers, waitingForAuthorisation, downloading };

        Step step = Step::working;
        /// 0 to 100; nothing while that cannot be told.
        std::optional<int> percentage{};
        /// Bytes that are still to be downloaded.
        quint64 remainingSize = 0;
        bool allowsCancel = false;
    };

    using Done = std::function<void(const Outcome &)>;
    /// The package may be there although something went wrong.
    using Found = std::function<void(const Outcome &, const std::optional<Package> &)>;
    using Told = std::function<void(const Outcome &, const QString &)>;
    using Listed = std::function<void(const Outcome &, const QList<Change> &)>;

    using QObject::QObject;

    /// Finds the installed package that the file at @p path belongs to.
    virtual void findPackageOf(const QString &path, Found found) = 0;
    /// Asks all sources of the system what there is.
    virtual void refreshSources(Done done) = 0;
    /// Finds a newer version of @p installed, as the package manager orders versions, in what the
    /// sources said last.
    virtual void findNewerVersion(const Package &installed, Found found) = 0;
    /// Finds what @p installed is by now.
    virtual void findInstalled(const Package &installed, Found found) = 0;
    /// Reads what is new in @p update: plain text, empty where its source tells nothing.
    virtual void readReleaseNotes(const Package &update, Told told) = 0;
    /// Lists what would change with @p update, itself included, and changes nothing.
    virtual void simulate(const Package &update, Listed listed) = 0;
    /// Installs @p update if it is signed as the system demands; asks for authorisation if need be.
    virtual void install(const Package &update, Done done) = 0;

    /// Asks the operation that is under way to stop, if its progress allows that. It still has its
    /// outcome.
    virtual void cancel() = 0;
    /// The outcome of the operation that is under way is not wanted any more: its callback is not
    /// called.
    virtual void forget() = 0;

signals:
    /// Of the operation that is under way.
    void progressed(const PackageManager::Progress &progress);
};
