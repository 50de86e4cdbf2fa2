// SPDX-License-Identifier: MIT
#include "prompt/TitleStrip.h"
#include "support/SettingsFixture.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QRadioButton>
#include <QTranslator>

namespace
{
/// A language that is written from the right and whose words are as wide as the English ones.
class LanguageFromTheRight final : public QTranslator
{
public:
    [[nodiscard]] QString translate(const char *, const char *text, const char *,
                                    int) const override
    {
        const QString english = QString::fromUtf8(text);
        constexpr QChar rightToLeftMark(0x200F);
        return english == u"QT_LAYOUT_DIRECTION"_s ? u"RTL"_s : rightToLeftMark + english;
    }
    [[nodiscard]] bool isEmpty() const override { return false; }
};
} // namespace

/// In a language that is written from the right, each window is the mirror image of itself.
class MirroredTest final : public SettingsFixture
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(QCoreApplication::installTranslator(&m_language)); }
    void cleanupTestCase() { QCoreApplication::removeTranslator(&m_language); }

    void desktop_isMirrored() { QCOMPARE(QGuiApplication::layoutDirection(), Qt::RightToLeft); }

    void settings_areMirrored()
    {
        (*m_state)->setFolderPath(u"/tmp/Journal"_s);
        QTRY_VERIFY(path()->isVisible());
        QTRY_COMPARE(backgroundColor(), QColor(0xECECEC)); // no scroll bar while it grows
        const QRect tile = placeOf(*window()->findChild<IconTile *>());
        const QRect folder = placeOf(*label(u"Folder"_s));
        QCOMPARE(tile, QRect(440 - 24 - 34, tile.y(), 34, 34));
        QCOMPARE(folder.right(), tile.left() - 14 - 1);
        QCOMPARE(faceOf(*button()).left(), 24);
        QCOMPARE(placeOf(*path()).right(), folder.right());
        QCOMPARE(faceOf(*number()).right(), folder.right());
        QCOMPARE(faceOf(*window()->findChild<QComboBox *>()).right(), folder.right());
        const auto radios = window()->findChildren<QRadioButton *>();
        QCOMPARE(radios.size(), 3);
        for (const QRadioButton *const radio : radios) {
            const QRect place = placeOf(*radio);
            const QImage picture = window()->grab().toImage();
            QCOMPARE(picture.pixelColor(folder.right() + 2, place.center().y()), backgroundColor());
            QVERIFY(picture.pixelColor(folder.right() - 1, place.center().y())
                    != backgroundColor());
        }
    }

    void dividers_areMirrored()
    {
        const QImage picture = window()->grab().toImage();
        const auto isDivided = [&](int x) {
            for (int y = 24; y < picture.height() - 24; ++y) {
                if (picture.pixelColor(x, y) != backgroundColor()) {
                    return true;
                }
            }
            return false;
        };
        constexpr int tile = 34;
        QVERIFY(isDivided(24));
        QVERIFY(!isDivided(440 - 24 - tile - 8));
    }

    void path_startsWithItsSlash()
    {
        const auto pictureOf = [this](const QString &text, Qt::LayoutDirection direction) {
            ElidedLabel label(window()->font(), QPalette::WindowText, nullptr);
            label.setLayoutDirection(direction);
            label.setText(text);
            label.resize(label.sizeHint());
            return label.grab().toImage();
        };
        const QString path = u"/tmp/Journal"_s;
        QCOMPARE(pictureOf(path, Qt::RightToLeft), pictureOf(path, Qt::LeftToRight));
    }

    void symbol_isAtTheOtherEndOfItsButton()
    {
        const auto buttons = window()->findChildren<QPushButton *>();
        const QImage preview = buttons.constLast()->grab().toImage();
        const auto isInked = [&preview](int x) {
            return preview.pixelColor(x, preview.height() / 2).lightness() < 100;
        };
        int right = preview.width() - 6;
        while (right > 0 && !isInked(right)) {
            --right;
        }
        // The triangle points away from the text and is inked all along this line.
        for (int x = right; x > right - 8; --x) {
            QVERIFY(isInked(x));
        }
    }

    void title_isMirrored()
    {
        TitleStrip strip(u"14:30"_s, look(*m_desktop->capabilities().appearance), nullptr);
        strip.resize(560, TitleStrip::height);
        strip.show();
        const auto labels = strip.findChildren<QLabel *>();
        QCOMPARE(labels.size(), 2);
        QCOMPARE(labels.at(1)->x(), 24);
        QVERIFY(labels.at(1)->geometry().right() < labels.at(0)->x());
        const QRect close = strip.findChild<QAbstractButton *>()->geometry();
        QCOMPARE(560 - 1 - close.center().x(), 12 + 6);
    }

private:
    LanguageFromTheRight m_language;
};

QTEST_MAIN(MirroredTest)
#include "MirroredTest.moc"
