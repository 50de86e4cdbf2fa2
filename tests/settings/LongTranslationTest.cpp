// SPDX-License-Identifier: MIT
#include "prompt/TitleStrip.h"
#include "support/SettingsFixture.h"

#include <QAbstractButton>
#include <QTranslator>

namespace
{
/// A language whose words are all 40 % longer than the English ones.
class LongLanguage final : public QTranslator
{
public:
    [[nodiscard]] QString translate(const char *, const char *text, const char *,
                                    int) const override
    {
        const QString english = QString::fromUtf8(text);
        return english + u"w"_s.repeated((english.size() * 2 + 4) / 5);
    }
    [[nodiscard]] bool isEmpty() const override { return false; }
};
} // namespace

class LongTranslationTest final : public SettingsFixture
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(QCoreApplication::installTranslator(&m_language)); }
    void cleanupTestCase() { QCoreApplication::removeTranslator(&m_language); }

    void settings_showEachWordWhole()
    {
        (*m_state)->setFolderPath(u"/tmp/Journal"_s);
        QCOMPARE(window()->width(), 440);
        QVERIFY(button()->text().contains(u"www"_s));
        const QRect inside = window()->rect().adjusted(24, 24, -24, -24);
        const auto labels = window()->findChildren<QLabel *>();
        for (const QLabel *const each : labels) {
            const bool isElided = qobject_cast<const ElidedLabel *>(each) != nullptr;
            if (each->isVisible() && !each->text().isEmpty() && !isElided && !each->wordWrap()) {
                QVERIFY2(each->width() >= each->sizeHint().width(), qPrintable(each->text()));
                QVERIFY2(inside.contains(placeOf(*each)), qPrintable(each->text()));
            }
        }
        const auto buttons = window()->findChildren<QAbstractButton *>();
        for (const QAbstractButton *const each : buttons) {
            if (each->isVisible() && !each->text().isEmpty()) {
                QVERIFY2(each->width() >= each->sizeHint().width(), qPrintable(each->text()));
                QVERIFY2(inside.contains(faceOf(*each)), qPrintable(each->text()));
            }
        }
    }

    void hint_leavesTheTimeAlone()
    {
        TitleStrip strip(u"14:30"_s, look(*m_desktop->capabilities().appearance), nullptr);
        strip.resize(560, TitleStrip::height);
        strip.show();
        const auto labels = strip.findChildren<QLabel *>();
        QCOMPARE(labels.size(), 2);
        const QRect time = labels.at(0)->geometry();
        const QRect hint = labels.at(1)->geometry();
        QVERIFY(labels.at(1)->text().contains(u"www"_s));
        QVERIFY(time.right() + 12 <= hint.left());
        QCOMPARE(hint.right(), 560 - 24 - 1);
        QCOMPARE(time.width(), labels.at(0)->sizeHint().width());
    }

private:
    LongLanguage m_language;
};

QTEST_MAIN(LongTranslationTest)
#include "LongTranslationTest.moc"
