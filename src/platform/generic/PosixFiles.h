// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Files.h"

/// Implements Files with POSIX calls and, where available, Linux's RENAME_NOREPLACE.
class PosixFiles final : public Files
{
public:
    [[nodiscard]] bool isFaithful(const QString &path) const override;
    [[nodiscard]] Failure ensureDirectory(const QString &path) override;
    [[nodiscard]] Failure appendOrCreate(const QString &path, const QByteArray &addition,
                                         const QByteArray &whole) override;
};
