// SPDX-License-Identifier: MIT
#include "platform/linux/xsettings/XSettingsAppearance.h"

#include "support/SettingsDaemon.h"

#include <QApplication>
#include <QSignalSpy>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace
{
const QString ownFont = u"DejaVu Sans Mono"_s;
} // namespace

class XSettingsAppearanceTest final : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        qunsetenv("XDG_CURRENT_DESKTOP");
        QApplication::setFont(QFont(ownFont));
        QPalette palette;
        palette.setColor(QPalette::Window, Qt::white);
        QApplication::setPalette(palette);
    }

    void theme_tellsTheScheme_data()
    {
        QTest::addColumn<QByteArray>("theme");
        QTest::addColumn<ColorScheme>("scheme");
        QTest::newRow("light") << QByteArray("Adwaita") << ColorScheme::Light;
        QTest::newRow("dark") << QByteArray("Adwaita-dark") << ColorScheme::Dark;
        QTest::newRow("dark within") << QByteArray("Mint-Y-Dark-Aqua") << ColorScheme::Dark;
    }
    void theme_tellsTheScheme()
    {
        QFETCH(const QByteArray, theme);
        const SettingsDaemon daemon(textSetting("Net/ThemeName", theme));
        QTEST(XSettingsAppearance().colorScheme(), "scheme");
    }

    void withoutATheme_theToolkitTells()
    {
        const XSettingsAppearance appearance;
        QCOMPARE(appearance.colorScheme(), ColorScheme::Light);
        QPalette dark;
        dark.setColor(QPalette::Window, Qt::black);
        QSignalSpy changes(&appearance, &Appearance::changed);
        QApplication::setPalette(dark);
        QTRY_VERIFY(!changes.isEmpty());
        QCOMPARE(appearance.colorScheme(), ColorScheme::Dark);
    }

    void themeThatChanges_isAnnounced()
    {
        SettingsDaemon daemon(textSetting("Net/ThemeName", "Adwaita"));
        const XSettingsAppearance appearance;
        QSignalSpy changes(&appearance, &Appearance::changed);
        daemon.publish(textSetting("Net/ThemeName", "Adwaita-dark"));
        QVERIFY(changes.wait());
        QCOMPARE(appearance.colorScheme(), ColorScheme::Dark);
    }

    void font_isAdopted_data()
    {
        QTest::addColumn<QByteArray>("description");
        QTest::addColumn<QByteArray>("desktop");
        QTest::addColumn<QString>("family");
        QTest::newRow("size") << QByteArray("DejaVu Serif 11") << QByteArray() << u"DejaVu Serif"_s;
        QTest::newRow("style and size")
            << QByteArray("DejaVu Serif Bold Italic 10.5") << QByteArray() << u"DejaVu Serif"_s;
        QTest::newRow("comma") << QByteArray("DejaVu Serif, 11") << QByteArray()
                               << u"DejaVu Serif"_s;
        QTest::newRow("not installed") << QByteArray("No Such Font 11") << QByteArray() << ownFont;
        QTest::newRow("none") << QByteArray() << QByteArray() << ownFont;
        QTest::newRow("MATE") << QByteArray("DejaVu Serif 11") << QByteArray("MATE")
                              << u"DejaVu Serif"_s;
        QTest::newRow("KDE") << QByteArray("DejaVu Serif 11") << QByteArray("KDE") << ownFont;
        QTest::newRow("LXQt") << QByteArray("DejaVu Serif 11") << QByteArray("X-Own:lxqt")
                              << ownFont;
    }
    void font_isAdopted()
    {
        QFETCH(const QByteArray, description);
        QFETCH(const QByteArray, desktop);
        qputenv("XDG_CURRENT_DESKTOP", desktop);
        const SettingsDaemon daemon(textSetting("Gtk/FontName", description));
        XSettingsAppearance appearance;
        QCOMPARE(QApplication::font().family(), ownFont); // no font is loaded at the start
        appearance.windowsWillOpen();
        QTEST(QApplication::font().family(), "family");
    }

    void font_isFollowed_afterTheFirstWindow()
    {
        SettingsDaemon daemon(textSetting("Gtk/FontName", "DejaVu Serif 11"));
        XSettingsAppearance appearance;
        appearance.windowsWillOpen();
        appearance.windowsWillOpen();
        daemon.publish(textSetting("Gtk/FontName", "DejaVu Sans 11"));
        QTRY_COMPARE(QApplication::font().family(), u"DejaVu Sans"_s);
    }

    void size_isTheToolkits()
    {
        const qreal size = QApplication::font().pointSizeF();
        const SettingsDaemon daemon(textSetting("Gtk/FontName", "DejaVu Serif 40"));
        XSettingsAppearance().windowsWillOpen();
        QCOMPARE(QApplication::font().pointSizeF(), size);
    }
};

QTEST_MAIN(XSettingsAppearanceTest)
#include "XSettingsAppearanceTest.moc"
