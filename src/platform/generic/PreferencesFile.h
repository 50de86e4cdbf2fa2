// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Preferences.h"

#include <QSettings>

/// The preferences as an INI file that people can read and edit; keys that the program does not
/// know stay in it.
class PreferencesFile final : public Preferences
{
public:
    explicit PreferencesFile(const QString &path);

    /// $XDG_CONFIG_HOME/Tovla/Tovla.conf
    [[nodiscard]] static QString userPath();

    [[nodiscard]] std::optional<QString> string(const QString &key) const override;
    [[nodiscard]] qint64 integer(const QString &key) const override;
    void setString(const QString &key, const QString &value) override;
    void setInteger(const QString &key, qint64 value) override;

private:
    void set(const QString &key, const QVariant &value);

    QSettings m_settings;
};

/// The integer that @p text begins with, after blanks and with an optional sign, or 0; also 0 when
/// it has more digits than 64 bits hold.
[[nodiscard]] qint64 leadingInteger(const QString &text);
