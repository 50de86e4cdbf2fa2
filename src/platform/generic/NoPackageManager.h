// SPDX-License-Identifier: MIT
#pragma once

#include "platform/PackageManager.h"

/// No package manager: every operation fails with noService.
class NoPackageManager final : public PackageManager
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(NoPackageManager)

public:
    NoPackageManager() = default;

    void findPackageOf(const QString &, Found found) override { found(nobody(), {}); }
    void refreshSources(Done done) override { done(nobody()); }
    void findNewerVersion(const Package &, Found found) override { found(nobody(), {}); }
    void findInstalled(const Package &, Found found) override { found(nobody(), {}); }
    void readReleaseNotes(const Package &, Told told) override { told(nobody(), {}); }
    void simulate(const Package &, Listed listed) override { listed(nobody(), {}); }
    void install(const Package &, Done done) override { done(nobody()); }
    void cancel() override { }
    void forget() override { }

private:
    [[nodiscard]] static Outcome nobody() { return {.failure = Failure::noService}; }
};
