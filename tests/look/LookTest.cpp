// SPDX-License-Identifier: MIT
#include "look/Look.h"

#include "support/TestDesktop.h"

#include <QTest>

#include <cmath>

namespace
{
QColor over(const QColor &color, const QColor &base)
{
    return mixed(color, color.alphaF(), base);
}

/// WCAG 2.1, relative luminance.
double luminance(const QColor &color)
{
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF())
        + 0.0722 * linear(color.blueF());
}

/// WCAG 2.1, contrast ratio.
double contrast(const QColor &text, const QColor &base)
{
    const double one = luminance(over(text, base)) + 0.05;
    const double other = luminance(base) + 0.05;
    return qMax(one, other) / qMin(one, other);
}
} // namespace

class LookTest final : public QObject
{
    Q_OBJECT

private slots:
    void forcedScheme_decides()
    {
        TestDesktop desktop;
        desktop.colorScheme = ColorScheme::Dark;
        const Desktop capabilities = desktop.capabilities();
        const Appearance &appearance = *capabilities.appearance;
        QCOMPARE(look(appearance).scheme, ColorScheme::Dark);
        QCOMPARE(look(appearance, ColorScheme::Light).scheme, ColorScheme::Light);
        desktop.colorScheme = ColorScheme::Light;
        QCOMPARE(look(appearance).scheme, ColorScheme::Light);
        QCOMPARE(look(appearance, ColorScheme::Dark).scheme, ColorScheme::Dark);
    }

    void text_isReadable_data()
    {
        QTest::addColumn<ColorScheme>("scheme");
        QTest::newRow("light") << ColorScheme::Light;
        QTest::newRow("dark") << ColorScheme::Dark;
    }

    void text_isReadable()
    {
        QFETCH(ColorScheme, scheme);
        TestDesktop desktop;
        const Desktop capabilities = desktop.capabilities();
        const Look look = ::look(*capabilities.appearance, scheme);
        for (const QColor &base : {look.textBackground, look.windowBackground, look.controlFace}) {
            QVERIFY(contrast(look.primaryText, base) >= 4.5);
        }
        QVERIFY(contrast(look.secondaryText, look.windowBackground) >= 4.5);
        QVERIFY(contrast(look.tertiaryText, look.windowBackground) >= 3);
        QVERIFY(contrast(look.placeholder, look.textBackground) >= 4.5);
        QVERIFY(contrast(look.primaryText, look.selection) >= 4.5);
    }

    void highContrast_isHonoured()
    {
        TestDesktop desktop;
        const Desktop capabilities = desktop.capabilities();
        for (const ColorScheme scheme : {ColorScheme::Light, ColorScheme::Dark}) {
            desktop.wantsHighContrast = false;
            const Look usual = look(*capabilities.appearance, scheme);
            desktop.wantsHighContrast = true;
            const Look high = look(*capabilities.appearance, scheme);
            QVERIFY(contrast(high.secondaryText, high.windowBackground) >= 7);
            QVERIFY(contrast(high.tertiaryText, high.windowBackground) >= 4.5);
            QVERIFY(contrast(high.divider, high.windowBackground)
                    > contrast(usual.divider, usual.windowBackground));
        }
    }

    void hint_isReadableOnGlass_overAnyWallpaper()
    {
        TestDesktop desktop;
        const Desktop capabilities = desktop.capabilities();
        const auto onGlass = [](QRgb glass, double opacity, const QColor &wallpaper) {
            return mixed(QColor(glass), opacity, wallpaper);
        };
        for (const double opacity : {0.90, 0.82}) {
            for (const QColor wallpaper : {QColor(Qt::black), QColor(Qt::white)}) {
                const QColor light = onGlass(0xF6F6F6, opacity, wallpaper);
                const QColor dark = onGlass(0x28282A, opacity, wallpaper);
                const Appearance &appearance = *capabilities.appearance;
                QVERIFY(contrast(look(appearance, ColorScheme::Light).hint, light) >= 4.5);
                QVERIFY(contrast(look(appearance, ColorScheme::Dark).hint, dark) >= 4.5);
            }
        }
    }
};

QTEST_GUILESS_MAIN(LookTest)
#include "LookTest.moc"
