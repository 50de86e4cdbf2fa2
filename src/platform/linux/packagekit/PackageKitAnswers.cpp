// SPDX-License-Identifier: MIT
#include "platform/linux/packagekit/PackageKitAnswers.h"

#include "platform/linux/packagekit/DebianChangelog.h"

#include <algorithm>

namespace
{
using Failure = PackageManager::Failure;
using Transaction = PackageKitTransaction;

constexpr qsizetype longestNotes = 20000;

/// PackageKit uses one error code for all problems with a source, but the messages of apt and gpgv
/// are always in English.
bool isAboutSignatures(const QString &text)
{
    const QStringList words{QStringLiteral("BADSIG"), QStringLiteral("NO_PUBKEY"),
                            QStringLiteral("EXPKEYSIG"), QStringLiteral("REVKEYSIG"),
                            QStringLiteral("not signed")};
    return std::ranges::any_of(words, [&text](const QString &word) { return text.contains(word); });
}
/// Removes the epoch, the packager's revision (Debian policy 5.6.12) and suffixes for modified
/// sources or rebuilds ("+dfsg", "+b1").
QString upstreamVersion(const QString &packageVersion)
{
    const qsizetype start = packageVersion.indexOf(u':') + 1;
    const qsizetype plus = packageVersion.indexOf(u'+');
    const qsizetype end = plus < 0 ? packageVersion.lastIndexOf(u'-') : plus;
    return packageVersion.mid(start, end < start ? -1 : end - start);
}

Failure retrievalFailure(const Transaction::Outcome &outcome)
{
    Failure failure = Failure::other;
    if (outcome.error == Transaction::noNetwork) {
        failure = Failure::offline;
    } else if (outcome.error == Transaction::cannotGetLock) {
        failure = Failure::busy;
    } else if (isAboutSignatures(outcome.errorText)) {
        failure = Failure::improperlySigned;
    }
    return failure;
}

Failure installationFailure(uint error)
{
    switch (error) {
    case Transaction::noNetwork:
        return Failure::offline;
    case Transaction::downloadFailed:
    case Transaction::badSignature:
        return Failure::notDownloaded;
    case Transaction::cannotGetLock:
        return Failure::busy;
    case Transaction::notAuthorised:
        return Failure::notAuthorised;
    default:
        return Failure::other;
    }
}

/// The outcome if it does not depend on the operation, else @p failure.
PackageManager::Outcome told(const Transaction::Outcome &outcome, Failure failure)
{
    if (outcome.isServiceGone) {
        failure = Failure::noService;
    } else if (outcome.wasCancelled()) {
        failure = Failure::cancelled;
    } else if (outcome.succeeded()) {
        failure = Failure::none;
    }
    return {failure, outcome.errorText};
}

PackageManager::Progress::Step stepOf(uint status)
{
    using Step = PackageManager::Progress::Step;
    switch (status) {
    case Transaction::waiting:
    case Transaction::waitingForLock:
        return Step::waitingForOthers;
    case Transaction::waitingForAuthorisation:
        return Step::waitingForAuthorisation;
    case Transaction::statusDownload:
        return Step::downloading;
    default:
        return Step::working;
    }
}
} // namespace

PackageManager::Package PackageKitAnswers::package(const PackageKitTransaction::Package &package)
{
    const PackageId &id = package.id;
    // For installed packages, the source follows the reason for the installation ("manual:",
    // "auto:").
    const QString source = id.data().section(u':', -1);
    PackageManager::Package result{.id = id.text, .name = id.name(), .version = id.version()};
    result.programVersion = upstreamVersion(id.version());
    result.isWithoutSource = source == u"local";
    result.source = result.isWithoutSource ? QString() : source;
    result.isHeldBack = package.info == Transaction::blocked;
    return result;
}

PackageManager::Progress
PackageKitAnswers::progress(const PackageKitTransaction::Progress &progress)
{
    PackageManager::Progress result{.step = stepOf(progress.status)};
    const bool isMeasured = progress.status >= Transaction::statusDownload
        && progress.status <= Transaction::statusUpdate;
    if (isMeasured && progress.percentage < Transaction::unknownPercentage) {
        result.percentage = static_cast<int>(progress.percentage);
    }
    result.remainingSize = progress.downloadSizeRemaining;
    result.allowsCancel = progress.allowsCancel;
    return result;
}

QString PackageKitAnswers::releaseNotes(const QVariantList &updateDetail)
{
    // org.freedesktop.PackageKit.Transaction, signal UpdateDetail
    constexpr int updateText = 7;
    constexpr int changelog = 8;
    const QString written = updateDetail.value(changelog).toString().trimmed();
    const bool isMissing = written.startsWith(u"Changelog for this version is not yet available");
    const QString text = written.isEmpty() || isMissing
        ? updateDetail.value(updateText).toString().trimmed()
        : written;
    return releaseNotesOfDebianChangelog(text.left(longestNotes));
}

PackageManager::Outcome PackageKitAnswers::retrieval(const PackageKitTransaction::Outcome &outcome)
{
    return told(outcome, retrievalFailure(outcome));
}

PackageManager::Outcome
PackageKitAnswers::installation(const PackageKitTransaction::Outcome &outcome)
{
    return told(outcome, installationFailure(outcome.error));
}
