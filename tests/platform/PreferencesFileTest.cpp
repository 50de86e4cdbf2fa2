// SPDX-License-Identifier: MIT
#include "platform/generic/PreferencesFile.h"

#include "support/FileSizeLimit.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

class PreferencesFileTest final : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_place = std::make_unique<QTemporaryDir>(); }

    void leadingInteger_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<qint64>("number");
        QTest::newRow("plain") << u"30"_s << 30LL;
        QTest::newRow("blanks") << u"  30 "_s << 30LL;
        QTest::newRow("plus") << u"+7"_s << 7LL;
        QTest::newRow("minus") << u"-5"_s << -5LL;
        QTest::newRow("two signs") << u"+-5"_s << 0LL;
        QTest::newRow("fraction") << u"30.7"_s << 30LL;
        QTest::newRow("exponent") << u"1e3"_s << 1LL;
        QTest::newRow("hexadecimal") << u"0x10"_s << 0LL;
        QTest::newRow("unit") << u"45 minutes"_s << 45LL;
        QTest::newRow("word") << u"often"_s << 0LL;
        QTest::newRow("empty") << QString() << 0LL;
        QTest::newRow("largest") << u"9223372036854775807"_s << std::numeric_limits<qint64>::max();
        QTest::newRow("too large") << u"9223372036854775808"_s << 0LL;
        QTest::newRow("far too large") << QString(400, u'9') << 0LL;
        QTest::newRow("foreign digits") << u"٣٠"_s << 0LL;
    }

    void leadingInteger()
    {
        QFETCH(QString, text);
        QTEST(::leadingInteger(text), "number");
    }

    void missing_isNothing()
    {
        const PreferencesFile preferences(path());
        QVERIFY(!preferences.string(u"folderPath"_s));
        QCOMPARE(preferences.integer(u"intervalMinutes"_s), 0);
        QVERIFY(!QFile::exists(path()));
    }

    void values_areOnTheDiskAtOnce_inTheNamedPlace()
    {
        PreferencesFile preferences(path());
        preferences.setString(u"theme"_s, u"dark"_s);
        preferences.setInteger(u"intervalMinutes"_s, 25);
        const QByteArray file = contents();
        QVERIFY(file.startsWith("[General]\n"));
        QVERIFY(file.contains("theme=dark\n"));
        QVERIFY(file.contains("intervalMinutes=25\n"));
    }

    void text_roundTrips()
    {
        const QStringList texts{u"/home/ann/Notes, and more; \"x\" \\ %20"_s,
                                u"@weird"_s,
                                u" leading"_s,
                                u"ünï 👩‍👩‍👧"_s,
                                u"line\nbreak"_s,
                                QString(u""_s)};
        for (const QString &text : texts) {
            PreferencesFile(path()).setString(u"folderPath"_s, text);
            QCOMPARE(PreferencesFile(path()).string(u"folderPath"_s), std::optional(text));
        }
    }

    void listTypedByHand_isReadAsText()
    {
        write("[General]\nintervalMinutes=30, 40\nfolderPath=/home/ann/a, b\n");
        const PreferencesFile preferences(path());
        QCOMPARE(preferences.integer(u"intervalMinutes"_s), 30);
        QCOMPARE(preferences.string(u"folderPath"_s), std::optional(u"/home/ann/a, b"_s));
    }

    void unknownKeys_stay()
    {
        write("[General]\nfuture=1\n\n[Elsewhere]\nkey=value\n");
        PreferencesFile(path()).setString(u"theme"_s, u"dark"_s);
        const QByteArray file = contents();
        QVERIFY(file.contains("future=1\n"));
        QVERIFY(file.contains("[Elsewhere]\nkey=value\n"));
    }

    void keysChangedByAnother_stay()
    {
        PreferencesFile ours(path());
        ours.setString(u"theme"_s, u"dark"_s);
        PreferencesFile(path()).setString(u"other"_s, u"kept"_s);
        ours.setInteger(u"intervalMinutes"_s, 5);
        QVERIFY(contents().contains("other=kept\n"));
    }

    void corruptFile_givesWhatCanBeRead()
    {
        write(QByteArray("\xFF\xFE\0garbage\n[General\n=\n[General]\ntheme=dark\n", 44));
        PreferencesFile preferences(path());
        QCOMPARE(preferences.integer(u"intervalMinutes"_s), 0);
        preferences.setInteger(u"intervalMinutes"_s, 5);
        QCOMPARE(PreferencesFile(path()).integer(u"intervalMinutes"_s), 5);
    }

    void fullDisk_keepsTheOldFile_andStoresTheValueAtTheNextChance_data()
    {
        QTest::addColumn<int>("bytesFree");
        QTest::newRow("full") << 0;
        QTest::newRow("full after the lock") << 90;
    }

    void fullDisk_keepsTheOldFile_andStoresTheValueAtTheNextChance()
    {
        QFETCH(const int, bytesFree);
        PreferencesFile preferences(path());
        preferences.setString(u"folderPath"_s, u"/home/ann/"_s + u"long/"_s.repeated(20));
        const QByteArray before = contents();
        {
            const FileSizeLimit limit(static_cast<rlim_t>(bytesFree));
            preferences.setString(u"theme"_s, u"dark"_s);
        }
        QCOMPARE(contents(), before);
        QCOMPARE(names(), QStringList{u"Tovla.conf"_s});
        QCOMPARE(preferences.string(u"theme"_s), std::optional(u"dark"_s));
        preferences.setInteger(u"intervalMinutes"_s, 25);
        QVERIFY(contents().startsWith(before.trimmed().first(9)));
        QVERIFY(contents().contains("theme=dark\n"));
        QVERIFY(contents().contains("intervalMinutes=25\n"));
    }

    void fullDisk_hasUntilTheProgramQuits()
    {
        PreferencesFile preferences(path());
        {
            const FileSizeLimit limit(0);
            preferences.setString(u"theme"_s, u"dark"_s);
        }
        QCOMPARE(contents(), QByteArray());
        QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
        QCoreApplication::exec();
        QVERIFY(contents().contains("theme=dark\n"));
    }

    void unwritablePlace_keepsTheValueForTheRun()
    {
        // A directory in place of the file makes it unreadable even for root.
        QVERIFY(QDir().mkpath(path()));
        PreferencesFile preferences(path());
        preferences.setString(u"theme"_s, u"dark"_s);
        QCOMPARE(preferences.string(u"theme"_s), std::optional(u"dark"_s));
        QVERIFY(QDir(path()).exists());
    }

private:
    [[nodiscard]] QString path() const { return m_place->filePath(u"Tovla/Tovla.conf"_s); }
    void write(const QByteArray &bytes) const
    {
        QVERIFY(QDir().mkpath(m_place->filePath(u"Tovla"_s)));
        QFile file(path());
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    }
    [[nodiscard]] QStringList names() const
    {
        return QDir(m_place->filePath(u"Tovla"_s))
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }
    [[nodiscard]] QByteArray contents() const
    {
        QFile file(path());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    std::unique_ptr<QTemporaryDir> m_place;
};

QTEST_GUILESS_MAIN(PreferencesFileTest)
#include "PreferencesFileTest.moc"
