// SPDX-License-Identifier: MIT
#pragma once

#include "platform/PackageManager.h"
#include "platform/linux/packagekit/PackageKitTransaction.h"

/// Translates PackageKit's answers into the types of PackageManager.
namespace PackageKitAnswers
{
[[nodiscard]] PackageManager::Package package(const PackageKitTransaction::Package &package);

[[nodiscard]] PackageManager::Progress progress(const PackageKitTransaction::Progress &progress);

/// The release notes that the source provides; empty if there are none.
[[nodiscard]] QString releaseNotes(const QVariantList &updateDetail);

/// The outcome of a query about versions or sources.
[[nodiscard]] PackageManager::Outcome retrieval(const PackageKitTransaction::Outcome &outcome);

/// The outcome of an installation.
[[nodiscard]] PackageManager::Outcome installation(const PackageKitTransaction::Outcome &outcome);
} // namespace PackageKitAnswers
