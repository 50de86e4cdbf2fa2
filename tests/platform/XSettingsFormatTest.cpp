// SPDX-License-Identifier: MIT
#include "platform/linux/xsettings/XSettingsFormat.h"

#include <QDataStream>
#include <QTest>

namespace
{
constexpr quint8 integer = 0;
constexpr quint8 string = 1;
constexpr quint8 color = 2;

class Property final
{
public:
    explicit Property(QDataStream::ByteOrder order, quint32 count)
        : m_stream(&m_bytes, QIODevice::WriteOnly)
    {
        m_stream.setByteOrder(order);
        m_stream << quint8(order == QDataStream::BigEndian ? 1 : 0) << quint8(0) << quint16(0);
        m_stream << quint32(7) << count;
    }

    Property &name(quint8 type, const QByteArray &name)
    {
        m_stream << type << quint8(0) << static_cast<quint16>(name.size());
        pad(name);
        m_stream << quint32(1);
        return *this;
    }

    Property &number(qint32 number)
    {
        m_stream << number;
        return *this;
    }

    Property &text(const QByteArray &text)
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

QByteArray example(QDataStream::ByteOrder order)
{
    return Property(order, 3)
        .name(string, "Net/ThemeName")
        .text("Adwaita-dark")
        .name(color, "Some/Color")
        .number(1)
        .number(2)
        .name(integer, "Gdk/WindowScalingFactor")
        .number(2)
        .bytes();
}
} // namespace

class XSettingsFormatTest final : public QObject
{
    Q_OBJECT

private slots:
    void settings_areRead_inEitherByteOrder()
    {
        for (const auto order : {QDataStream::LittleEndian, QDataStream::BigEndian}) {
            const auto settings = xSettingsIn(example(order));
            QCOMPARE(settings.size(), 2);
            QCOMPARE(settings.value("Net/ThemeName").toString(), QStringLiteral("Adwaita-dark"));
            QCOMPARE(settings.value("Gdk/WindowScalingFactor").toInt(), 2);
        }
    }

    void damagedSettings_areNone()
    {
        const QByteArray whole = example(QDataStream::LittleEndian);
        for (qsizetype length = 0; length < whole.size(); ++length) {
            QVERIFY2(xSettingsIn(whole.first(length)).isEmpty(),
                     qPrintable(QString::number(length)));
        }
        QVERIFY(xSettingsIn(Property(QDataStream::LittleEndian, 0xFFFFFFFF).bytes()).isEmpty());
        QVERIFY(
            xSettingsIn(Property(QDataStream::LittleEndian, 1).name(string, "A").number(-1).bytes())
                .isEmpty());
        QVERIFY(xSettingsIn(Property(QDataStream::LittleEndian, 1).name(9, "A").number(1).bytes())
                    .isEmpty());
    }
};

QTEST_GUILESS_MAIN(XSettingsFormatTest)
#include "XSettingsFormatTest.moc"
