// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

/// The user's preferences: one value per key, kept between runs.
/// Errors are not reported: a value that cannot be read counts as missing, and one that cannot be
/// written is kept, and written with the next value or when the program quits, if that is possible.
class Preferences
{
public:
    Preferences() = default;
    virtual ~Preferences() = default;
    Q_DISABLE_COPY_MOVE(Preferences)

    /// The stored text, or nullopt if the key is missing.
    [[nodiscard]] virtual std::optional<QString> string(const QString &key) const = 0;
    /// The integer at the start of the stored text, or 0.
    [[nodiscard]] virtual qint64 integer(const QString &key) const = 0;

    /// The value is on the disk when these return, unless it cannot be written.
    virtual void setString(const QString &key, const QString &value) = 0;
    virtual void setInteger(const QString &key, qint64 value) = 0;
};
