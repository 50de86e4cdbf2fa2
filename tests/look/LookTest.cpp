// SPDX-License-Identifier: MIT
#include "look/Look.h"

#include "look/Contrast.h"
#include "support/TestDesktop.h"

#include <QTest>

namespace
{
QColor over(const QColor &color, const QColor &base)
{
    return mixed(color, color.alphaF(), base);
}

double contrastOver(const QColor &text, const QColor &base)
{
    return contrast(over(text, base), base);
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

    void anyAccent_carriesWhiteText_andIsSeenAroundControls()
    {
        TestDesktop desktop;
        const Desktop capabilities = desktop.capabilities();
        for (const auto scheme : {ColorScheme::Light, ColorScheme::Dark}) {
            for (int hue = 0; hue < 360; hue += 15) {
                for (const int lightness : {0, 64, 128, 192, 255}) {
                    desktop.accent = QColor::fromHsl(hue, 255, lightness);
                    const Look current = look(*capabilities.appearance, scheme);
                    QVERIFY(contrast(Qt::white, current.prominent) >= 4.5);
                    QVERIFY(contrast(current.focusRing, current.windowBackground) >= 3);
                    QVERIFY(contrast(current.focusRing, current.controlFace) >= 3);
                }
            }
        }
    }

    void blueAccent_isTheOneOfTheDesign()
    {
        TestDesktop desktop;
        const Desktop capabilities = desktop.capabilities();
        for (const auto scheme : {ColorScheme::Light, ColorScheme::Dark}) {
            const QColor prominent = look(*capabilities.appearance, scheme).prominent;
            QVERIFY(qAbs(prominent.green() - 0x67) <= 2);
            QVERIFY(qAbs(prominent.blue() - 0xD8) <= 3);
        }
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
            QVERIFY(contrastOver(look.primaryText, base) >= 4.5);
        }
        QVERIFY(contrastOver(look.secondaryText, look.windowBackground) >= 4.5);
        QVERIFY(contrastOver(look.tertiaryText, look.windowBackground) >= 3);
        QVERIFY(contrastOver(look.placeholder, look.textBackground) >= 4.5);
        QVERIFY(contrastOver(look.primaryText, look.selection) >= 4.5);
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
            QVERIFY(contrastOver(high.secondaryText, high.windowBackground) >= 7);
            QVERIFY(contrastOver(high.tertiaryText, high.windowBackground) >= 4.5);
            // And they still differ.
            QCOMPARE_GT(high.primaryText.alphaF(), high.secondaryText.alphaF());
            QCOMPARE_GT(high.secondaryText.alphaF(), high.tertiaryText.alphaF());
            QCOMPARE(high.placeholder, high.tertiaryText);
            QVERIFY(contrastOver(high.divider, high.windowBackground)
                    > contrastOver(usual.divider, usual.windowBackground));
            for (const QColor &line :
                 {high.divider, high.controlRim, high.rim.shade, high.shadowRim}) {
                QVERIFY(contrastOver(line, high.windowBackground) >= 3);
                QVERIFY(contrastOver(line, high.menuFace) >= 3);
            }
            QVERIFY(contrastOver(high.controlRim, high.controlFace) >= 3);
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
                QVERIFY(contrastOver(look(appearance, ColorScheme::Light).hint, light) >= 4.5);
                QVERIFY(contrastOver(look(appearance, ColorScheme::Dark).hint, dark) >= 4.5);
            }
        }
    }
};

QTEST_GUILESS_MAIN(LookTest)
#include "LookTest.moc"
