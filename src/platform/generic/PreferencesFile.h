// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Preferences.h"

#include <QSettings>

/// The preferences as an INI file that people can read and edit. Unknown keys are preserved. The
/// file is replaced as a whole, so a failure leaves the old one. Needs the application object.
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

/// The integer at the start of @p text, after optional white space and an optional sign. 0 if there
/// is none or if it does not fit 64 bits.
[[nodiscard]] qint64 leadingInteger(const QString &text);
