// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QDataStream>
#include <QIODevice>

/// Writes settings as a settings daemon publishes them (freedesktop.org, XSETTINGS 0.5).
class XSettingsProperty final
{
public:
    static constexpr quint8 integer = 0;
    static constexpr quint8 string = 1;
    static constexpr quint8 color = 2;

    /// @p count is the number of settings that follow.
    explicit XSettingsProperty(QDataStream::ByteOrder order, quint32 count)
        : m_stream(&m_bytes, QIODevice::WriteOnly)
    {
        m_stream.setByteOrder(order);
        m_stream << quint8(order == QDataStream::BigEndian ? 1 : 0) << quint8(0) << quint16(0);
        m_stream << quint32(7) << count;
    }

    XSettingsProperty &name(quint8 type, const QByteArray &name)
    {
        m_stream << type << quint8(0) << static_cast<quint16>(name.size());
        pad(name);
        m_stream << quint32(1);
        return *this;
    }

    XSettingsProperty &number(qint32 number)
    {
        m_stream << number;
        return *this;
    }

    XSettingsProperty &text(const QByteArray &text)
    {
        m_stream << static_cast<quint32>(text.size());
        pad(text);
        return *this;
    }

    [[nodiscard]] QByteArray bytes() const { return m_bytes; }

private:
    void pad(const QByteArray &bytes)
    {
        const QByteArray padded = bytes + QByteArray((4 - bytes.size() % 4) % 4, '\0');
        m_stream.writeRawData(padded.constData(), static_cast<int>(padded.size()));
    }

    QByteArray m_bytes;
    QDataStream m_stream;
};
