// SPDX-License-Identifier: MIT
#pragma once

#include "platform/PackageManager.h"
#include "platform/linux/packagekit/PackageKitTransaction.h"

/// The answers of PackageKit in the words that all package managers have in common.
namespace PackageKitAnswers
{
[[nodiscard]] PackageManager::Package package(const PackageKitTransaction::Package &package);

[[nodiscard]] PackageManager::Progress progress(const PackageKitTransaction::Progress &progress);

/// What the source has to say about the update; nothing where it says nothing of its own.
[[nodiscard]] QString releaseNotes(const QVariantList &updateDetail);

/// How a question about versions and sources ended.
[[nodiscard]] PackageManager::Outcome retrieval(const PackageKitTransaction::Outcome &outcome);

/// How an installation ended.
[[nodiscard]] PackageManager::Outcome installation(const PackageKitTransaction::Outcome &outcome);
} // namespace PackageKitAnswers
