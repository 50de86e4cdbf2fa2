// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

/// The user's preferences: one value a key, kept between runs.
/// A store that cannot be read or written never fails its caller: what cannot be read is missing,
/// and what cannot be written is forgotten at the end of the run.
class Preferences
{
public:
    Preferences() = default;
    virtual ~Preferences() = default;
    Q_DISABLE_COPY_MOVE(Preferences)

    /// The stored text, or nothing when the key is missing.
    [[nodiscard]] virtual std::optional<QString> string(const QString &key) const = 0;
    /// The integer that the stored text begins with, or 0.
    [[nodiscard]] virtual qint64 integer(const QString &key) const = 0;

    /// On the disk when these return.
    virtual void setString(const QString &key, const QString &value) = 0;
    virtual void setInteger(const QString &key, qint64 value) = 0;
};
