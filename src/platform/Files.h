// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>
#include <QtGlobal>

#include <optional>

/// Small synchronous file operations whose every step is checked. What cannot be looked at is not
/// taken for missing, and nothing that is there is ever replaced or removed.
class Files
{
public:
    /// Why an operation failed, in the system's own words ("No space left on device"); nothing when
    /// it succeeded.
    using Failure = std::optional<QString>;

    Files() = default;
    virtual ~Files() = default;
    Q_DISABLE_COPY_MOVE(Files)

    /// Whether @p path names a file as the system knows it: a byte that is not UTF-8 is lost on its
    /// way into a text, and the text would then name another file.
    [[nodiscard]] virtual bool isFaithful(const QString &path) const = 0;

    /// Makes the directory and those above it, unless anything, of any kind, is there already.
    [[nodiscard]] virtual Failure ensureDirectory(const QString &path) = 0;

    /// Adds @p addition at the end of the regular file at @p path, or makes one of @p whole where
    /// there is none, at the end of a link too; on the disk on return. Never reads or truncates. A
    /// reader sees a new file with all of its bytes or not at all; of an addition that fails
    /// midway, what was written stays. A file that another program makes or replaces meanwhile gets
    /// the addition; when that goes on and on, the operation fails.
    [[nodiscard]] virtual Failure appendOrCreate(const QString &path, const QByteArray &addition,
                                                 const QByteArray &whole)
        = 0;
};
