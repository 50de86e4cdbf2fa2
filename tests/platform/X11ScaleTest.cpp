// SPDX-License-Identifier: MIT
#include "platform/linux/xsettings/X11Scale.h"

#include "support/SettingsDaemon.h"

#include <QTest>

namespace
{
using Property = XSettingsProperty;

QByteArray scaledBy(int factor)
{
    return Property(QDataStream::LittleEndian, 1)
        .name(Property::integer, "Gdk/WindowScalingFactor")
        .number(factor)
        .bytes();
}

/// What GNOME's daemon says: Xft/DPI has been scaled already.
QByteArray scaledWithTheText(int factor)
{
    return Property(QDataStream::LittleEndian, 2)
        .name(Property::integer, "Gdk/WindowScalingFactor")
        .number(factor)
        .name(Property::integer, "Gdk/UnscaledDPI")
        .number(96 * 1024)
        .bytes();
}

QByteArray factorAdopted()
{
    X11Scale::adopt();
    return qgetenv("QT_SCALE_FACTOR");
}
} // namespace

class X11ScaleTest final : public QObject
{
    Q_OBJECT

private slots:
    void init() { qputenv("XDG_CURRENT_DESKTOP", "XFCE"); }

    void xfcesFactor_isAdopted()
    {
        const SettingsDaemon daemon(scaledBy(2));
        QCOMPARE(factorAdopted(), "2");
    }

    void factorOne_needsNothing()
    {
        const SettingsDaemon daemon(scaledBy(1));
        QCOMPARE(factorAdopted(), "");
    }

    void factorInTheDotsPerInch_isNotAppliedTwice()
    {
        const SettingsDaemon daemon(scaledWithTheText(2));
        QCOMPARE(factorAdopted(), "");
    }

    void otherDesktops_areLeftToTheToolkit()
    {
        qputenv("XDG_CURRENT_DESKTOP", "MATE");
        const SettingsDaemon daemon(scaledBy(2));
        QCOMPARE(factorAdopted(), "");
    }

    void usersOwnScale_stays()
    {
        const SettingsDaemon daemon(scaledBy(2));
        qputenv("QT_SCALE_FACTOR", "1.25");
        QCOMPARE(factorAdopted(), "1.25");
        qunsetenv("QT_SCALE_FACTOR");
        qputenv("QT_SCREEN_SCALE_FACTORS", "1.5");
        QCOMPARE(factorAdopted(), "");
    }

    void withoutADaemon_nothingIsAdopted() { QCOMPARE(factorAdopted(), ""); }

    void cleanup()
    {
        qunsetenv("QT_SCALE_FACTOR");
        qunsetenv("QT_SCREEN_SCALE_FACTORS");
    }
};

QTEST_MAIN(X11ScaleTest)
#include "X11ScaleTest.moc"
