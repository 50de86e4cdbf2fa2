// SPDX-License-Identifier: MIT
#include "core/ThemePreference.h"

#include <QTest>

class ThemePreferenceTest final : public QObject
{
    Q_OBJECT

private slots:
    void rawValue_roundTrips()
    {
        const QStringList words{u"system"_qs, u"light"_qs, u"dark"_qs};
        for (qsizetype i = 0; i < words.size(); ++i) {
            const ThemePreference theme = allThemePreferences.at(static_cast<size_t>(i));
            QCOMPARE(rawValue(theme), words.at(i));
            QCOMPARE(themePreference(words.at(i)), std::optional(theme));
        }
    }

    void otherText_isNoPreference()
    {
        for (const QString &text : {u"Dark"_qs, u"sepia"_qs, u" dark"_qs, QString()}) {
            QVERIFY2(!themePreference(text), qPrintable(text));
        }
    }
};

QTEST_GUILESS_MAIN(ThemePreferenceTest)
#include "ThemePreferenceTest.moc"
