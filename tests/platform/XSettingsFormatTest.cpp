// SPDX-License-Identifier: MIT
#include "platform/linux/xsettings/XSettingsFormat.h"

#include "support/XSettingsProperty.h"

#include <QTest>

namespace
{
using Property = XSettingsProperty;

QByteArray example(QDataStream::ByteOrder order)
{
    return Property(order, 3)
        .name(Property::string, "Net/ThemeName")
        .text("Adwaita-dark")
        .name(Property::color, "Some/Color")
        .number(1)
        .number(2)
        .name(Property::integer, "Gdk/WindowScalingFactor")
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
        QVERIFY(xSettingsIn(Property(QDataStream::LittleEndian, 1)
                                .name(Property::string, "A")
                                .number(-1)
                                .bytes())
                    .isEmpty());
        QVERIFY(xSettingsIn(Property(QDataStream::LittleEndian, 1).name(9, "A").number(1).bytes())
                    .isEmpty());
    }
};

QTEST_GUILESS_MAIN(XSettingsFormatTest)
#include "XSettingsFormatTest.moc"
