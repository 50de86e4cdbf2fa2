// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// Small synchronous file operations whose every step is checked.
namespace Files
{
/// Why an operation failed, in the system's own words ("No space left on device"); nothing when it
/// succeeded.
using Failure = std::optional<QString>;

/// Whether anything, of any kind, is there. A link that leads nowhere is nothing.
[[nodiscard]] bool exists(const QString &path);

/// Makes the directory and those above it that are missing.
[[nodiscard]] Failure createDirectories(const QString &path);

/// Puts a file with exactly these bytes at @p path, replacing what is there. A reader sees all of
/// them or none, and so does the next start after a power cut. On failure nothing is left behind.
[[nodiscard]] Failure writeWhole(const QString &path, const QByteArray &bytes);

/// Adds the bytes at the end of an existing regular file and has them on the disk on return. Never
/// creates, truncates or reads the file; anything else than a regular file is refused without
/// waiting for it. On failure the bytes that were written before it stay.
[[nodiscard]] Failure append(const QString &path, const QByteArray &bytes);
} // namespace Files
