// SPDX-License-Identifier: MIT
#include "core/ThemePreference.h"

#include <QTest>

using namespace Qt::StringLiterals;

class ThemePreferenceTest final : public QObject
{
    Q_OBJECT

private slots:
    void rawValue_roundTrips()
    {
        const QStringList words{u"system"_s, u"light"_s, u"dark"_s};
        for (qsizetype i = 0; i < words.size(); ++i) {
            const ThemePreference theme = allThemePreferences.at(static_cast<size_t>(i));
            QCOMPARE(rawValue(theme), words.at(i));
            QCOMPARE(themePreference(words.at(i)), std::optional(theme));
        }
    }

    void preferredColorScheme_isNoneForTheSystems()
    {
        QCOMPARE(preferredColorScheme(ThemePreference::system), std::nullopt);
        QCOMPARE(preferredColorScheme(ThemePreference::light), std::optional(ColorScheme::Light));
        QCOMPARE(preferredColorScheme(ThemePreference::dark), std::optional(ColorScheme::Dark));
    }

    void otherText_isNoPreference()
    {
        for (const QString &text : {u"Dark"_s, u"sepia"_s, u" dark"_s, QString()}) {
            QVERIFY2(!themePreference(text), qPrintable(text));
        }
    }
};

QTEST_GUILESS_MAIN(ThemePreferenceTest)
#include "ThemePreferenceTest.moc"
