// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Updates.h"
#include "platform/linux/packagekit/PackageKitTransaction.h"

/// What the answers of PackageKit mean to Tovla.
namespace PackageKitAnswers
{
/// Without the epoch, the packager's revision (Debian policy 5.6.12) and what packagers add to
/// say that they have altered the sources or built them anew ("+dfsg", "+b1").
[[nodiscard]] QString upstreamVersion(const QString &packageVersion);

/// Where the package that is installed came from; nothing where that is not known.
[[nodiscard]] QString sourceOf(const PackageId &installed);

/// What the source has to say about the update; nothing where it says nothing of its own.
[[nodiscard]] QString releaseNotes(const QVariantList &updateDetail);

/// Why newer versions could not be looked for.
[[nodiscard]] UpdateState::Failure retrievalFailure(const PackageKitTransaction::Outcome &outcome);

/// Why a newer version could not be installed.
[[nodiscard]] UpdateState::Failure
installationFailure(const PackageKitTransaction::Outcome &outcome);
} // namespace PackageKitAnswers
