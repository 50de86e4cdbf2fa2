// SPDX-License-Identifier: MIT
#include "platform/generic/PreferencesFile.h"

#include <QCoreApplication>
#include <QStandardPaths>

#include <charconv>

PreferencesFile::PreferencesFile(const QString &path)
    : m_settings(path, QSettings::IniFormat)
{
    // The last chance for a value that could not be written, such as on a full disk.
    QObject::connect(QCoreApplication::instance(), &QCoreApplication::aboutToQuit, &m_settings,
                     &QSettings::sync);
}

QString PreferencesFile::userPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)
        + QStringLiteral("/Tovla/Tovla.conf");
}

std::optional<QString> PreferencesFile::string(const QString &key) const
{
    const QVariant value = m_settings.value(key);
    if (!value.isValid()) {
        return std::nullopt;
    }
    // A hand-edited value with an unquoted comma is parsed as a list.
    return value.typeId() == QMetaType::QStringList ? value.toStringList().join(u", ")
                                                    : value.toString();
}

qint64 PreferencesFile::integer(const QString &key) const
{
    return leadingInteger(string(key).value_or(QString()));
}

void PreferencesFile::setString(const QString &key, const QString &value)
{
    set(key, value);
}

void PreferencesFile::setInteger(const QString &key, qint64 value)
{
    set(key, QVariant::fromValue(value));
}

void PreferencesFile::set(const QString &key, const QVariant &value)
{
    m_settings.setValue(key, value);
    m_settings.sync();
}

qint64 leadingInteger(const QString &text)
{
    const QByteArray ascii = text.trimmed().toLatin1();
    const char *begin = ascii.startsWith('+') ? ascii.cbegin() + 1 : ascii.cbegin();
    qint64 number = 0;
    const auto [end, error] = std::from_chars(begin, ascii.cend(), number);
    // from_chars accepts a minus, so "+-5" must be rejected here.
    const bool hasTwoSigns = begin != ascii.cbegin() && ascii.size() > 1 && ascii.at(1) == '-';
    return error == std::errc() && !hasTwoSigns ? number : 0;
}
