// SPDX-License-Identifier: MIT
#include "platform/linux/xsettings/XSettingsFormat.h"

#include <QDataStream>
#include <QIODevice>

namespace
{
enum class Type : quint8 { Integer = 0, String = 1, Color = 2 };

/// Everything is padded to a multiple of four bytes.
QByteArray readPadded(QDataStream &stream, quint32 length)
{
    const auto left = static_cast<quint32>(stream.device()->bytesAvailable());
    if (length > left) {
        stream.setStatus(QDataStream::ReadCorruptData);
        return {};
    }
    QByteArray bytes(static_cast<qsizetype>(length), Qt::Uninitialized);
    stream.readRawData(bytes.data(), static_cast<int>(length));
    stream.skipRawData(static_cast<int>((4 - length % 4) % 4));
    return bytes;
}

QVariant readValue(QDataStream &stream, Type type)
{
    if (type == Type::Integer) {
        qint32 number = 0;
        stream >> number;
        return number;
    }
    if (type == Type::String) {
        quint32 length = 0;
        stream >> length;
        return QString::fromUtf8(readPadded(stream, length));
    }
    constexpr int bytesOfColor = 8;
    if (type != Type::Color || stream.skipRawData(bytesOfColor) != bytesOfColor) {
        stream.setStatus(QDataStream::ReadCorruptData);
    }
    return {};
}
} // namespace

QHash<QByteArray, QVariant> xSettingsIn(const QByteArray &property)
{
    constexpr char bigEndian = 1;
    QDataStream stream(property);
    stream.setByteOrder(property.startsWith(bigEndian) ? QDataStream::BigEndian
                                                       : QDataStream::LittleEndian);
    constexpr int orderAndSerial = 8;
    stream.skipRawData(orderAndSerial);
    quint32 count = 0;
    stream >> count;
    QHash<QByteArray, QVariant> settings;
    for (quint32 i = 0; i < count && stream.status() == QDataStream::Ok; ++i) {
        quint8 type = 0;
        quint8 unused = 0;
        quint16 nameLength = 0;
        quint32 serial = 0;
        stream >> type >> unused >> nameLength;
        const QByteArray name = readPadded(stream, nameLength);
        stream >> serial;
        const QVariant value = readValue(stream, static_cast<Type>(type));
        if (value.isValid()) {
            settings.insert(name, value);
        }
    }
    return stream.status() == QDataStream::Ok ? settings : QHash<QByteArray, QVariant>();
}
