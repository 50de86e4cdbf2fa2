// SPDX-License-Identifier: MIT
#include "platform/linux/packagekit/PackageKitAnswers.h"

#include "platform/linux/packagekit/DebianChangelog.h"

#include <algorithm>

namespace
{
using Failure = UpdateState::Failure;
using Transaction = PackageKitTransaction;

constexpr qsizetype longestNotes = 20000;

/// PackageKit gives the same number to all that can be wrong with a source; what apt and gpgv say
/// about it is always in English.
bool isAboutSignatures(const QString &text)
{
    const QStringList words{QStringLiteral("BADSIG"), QStringLiteral("NO_PUBKEY"),
                            QStringLiteral("EXPKEYSIG"), QStringLiteral("REVKEYSIG"),
                            QStringLiteral("not signed")};
    return std::ranges::any_of(words, [&text](const QString &word) { return text.contains(word); });
}
} // namespace

QString PackageKitAnswers::upstreamVersion(const QString &packageVersion)
{
    const qsizetype start = packageVersion.indexOf(u':') + 1;
    const qsizetype plus = packageVersion.indexOf(u'+');
    const qsizetype end = plus < 0 ? packageVersion.lastIndexOf(u'-') : plus;
    return packageVersion.mid(start, end < start ? -1 : end - start);
}

QString PackageKitAnswers::sourceOf(const PackageId &installed)
{
    const QString source = installed.data().section(u':', -1);
    return source == u"local" ? QString() : source;
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

UpdateState::Failure
PackageKitAnswers::retrievalFailure(const PackageKitTransaction::Outcome &outcome)
{
    Failure failure = Failure::notRetrieved;
    if (outcome.error == Transaction::noNetwork) {
        failure = Failure::offline;
    } else if (outcome.error == Transaction::cannotGetLock) {
        failure = Failure::busy;
    } else if (isAboutSignatures(outcome.errorText)) {
        failure = Failure::improperlySigned;
    }
    return failure;
}

UpdateState::Failure
PackageKitAnswers::installationFailure(const PackageKitTransaction::Outcome &outcome)
{
    Failure failure = Failure::notInstalled;
    switch (outcome.error) {
    case Transaction::noNetwork:
        failure = Failure::offline;
        break;
    case Transaction::downloadFailed:
    case Transaction::badSignature:
        failure = Failure::notDownloaded;
        break;
    case Transaction::cannotGetLock:
        failure = Failure::busy;
        break;
    default:
        break;
    }
    return failure;
}
