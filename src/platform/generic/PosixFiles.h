// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Files.h"

/// Files by the calls of POSIX, and by Linux's rename that replaces nothing where it is there.
class PosixFiles final : public Files
{
public:
    [[nodiscard]] bool isFaithful(const QString &path) const override;
    [[nodiscard]] Failure ensureDirectory(const QString &path) override;
    [[nodiscard]] Failure appendOrCreate(const QString &path, const QByteArray &addition,
                                         const QByteArray &whole) override;
};
