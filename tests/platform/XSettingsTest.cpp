// SPDX-License-Identifier: MIT
#include "platform/linux/xsettings/XSettings.h"

#include "support/SettingsDaemon.h"

#include <QSignalSpy>
#include <QTest>

#include <memory>

namespace
{
constexpr auto name = "Net/ThemeName";

std::unique_ptr<SettingsDaemon> daemonWith(const QByteArray &theme)
{
    return std::make_unique<SettingsDaemon>(textSetting(name, theme));
}
} // namespace

class XSettingsTest final : public QObject
{
    Q_OBJECT

private slots:
    void init() { QCoreApplication::processEvents(); } // of the daemons before

    void withoutADaemon_nothingIsSet()
    {
        QVERIFY(!XSettings().value(name).isValid());
        QVERIFY(XSettings::readOnce().isEmpty());
    }

    void settings_areReadAtOnce()
    {
        const auto daemon = daemonWith("Adwaita");
        QCOMPARE(XSettings().value(name).toString(), QStringLiteral("Adwaita"));
        QCOMPARE(XSettings::readOnce().value(name).toString(), QStringLiteral("Adwaita"));
    }

    void change_isFollowed()
    {
        const auto daemon = daemonWith("Adwaita");
        const XSettings settings;
        QSignalSpy changes(&settings, &XSettings::changed);
        daemon->publish(textSetting(name, "Adwaita-dark"));
        QVERIFY(changes.wait());
        QCOMPARE(settings.value(name).toString(), QStringLiteral("Adwaita-dark"));
    }

    void daemonThatEnds_leavesNothing_andTheNextIsFollowed()
    {
        auto daemon = daemonWith("Adwaita");
        const XSettings settings;
        daemon.reset();
        QTRY_VERIFY(!settings.value(name).isValid());
        daemon = daemonWith("Mint-Y");
        QTRY_COMPARE(settings.value(name).toString(), QStringLiteral("Mint-Y"));
        daemon->publish(textSetting(name, "Mint-Y-Dark"));
        QTRY_COMPARE(settings.value(name).toString(), QStringLiteral("Mint-Y-Dark"));
    }

    void otherWindows_areNotRead()
    {
        const auto daemon = daemonWith("Adwaita");
        const XSettings settings;
        const QSignalSpy changes(&settings, &XSettings::changed);
        X11Peer other;
        other.setText(Xcb::root(), "_TOVLA_TEST", "changed");
        daemon->publish(textSetting(name, "Adwaita-dark"));
        QTRY_COMPARE(settings.value(name).toString(), QStringLiteral("Adwaita-dark"));
        QCOMPARE(changes.size(), 1);
    }
};

QTEST_MAIN(XSettingsTest)
#include "XSettingsTest.moc"
