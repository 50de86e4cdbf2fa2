// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>
#include <QtGlobal>

#include <optional>

/// Small synchronous file operations that check every step. A file that cannot be accessed is not
/// assumed to be missing, and an existing file is never replaced or removed.
class Files
{
public:
    /// The system's error message ("No space left on device"), or nullopt after a success.
    using Failure = std::optional<QString>;

    Files() = default;
    virtual ~Files() = default;
    Q_DISABLE_COPY_MOVE(Files)

    /// Whether @p path still names the file that it was read from: bytes that are not valid UTF-8
    /// are lost in a QString, which would then name a different file.
    [[nodiscard]] virtual bool isFaithful(const QString &path) const = 0;

    /// Creates the directory and its parents, unless something of any kind already exists there.
    [[nodiscard]] virtual Failure ensureDirectory(const QString &path) = 0;

    /// Appends @p addition to the regular file at @p path or, if there is none, creates it with the
    /// content @p whole; follows symbolic links in both cases. On return, the data is on the disk,
    /// as far as the file system can confirm that. May wait up to a second if a file server holds a
    /// lease on the file.
    /// Never reads or truncates a file. Readers see a new file complete or not at all; if appending
    /// fails midway, what was written stays. If another program creates or replaces the file in the
    /// meantime, that file gets the addition; if this happens again and again, the operation fails.
    [[nodiscard]] virtual Failure appendOrCreate(const QString &path, const QByteArray &addition,
                                                 const QByteArray &whole)
        = 0;
};
