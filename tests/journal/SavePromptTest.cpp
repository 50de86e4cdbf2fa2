// SPDX-License-Identifier: MIT
#include "support/AppStateForTests.h"
#include "support/TimeZone.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QTimeZone>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace
{
/// 08:00 in Berlin.
const QDateTime morning(QDate(2026, 11, 15), QTime(7, 0), QTimeZone::utc());
} // namespace

class SavePromptTest final : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_zone = std::make_unique<TimeZone>("Europe/Berlin");
        m_place = std::make_unique<QTemporaryDir>();
        m_desktop = std::make_unique<TestDesktop>();
        m_state = std::make_unique<AppStateForTests>(*m_desktop);
        (*m_state)->setFolderPath(folder());
    }

    void cleanup()
    {
        m_state.reset();
        m_zone.reset();
    }

    void newDay_getsHeaderAndTrimmedNote()
    {
        save(u"  hello \n\n"_s);
        QCOMPARE(day("2026-11-15"), "# 2026-11-15\n\n## 08:00\nhello\n");
        QVERIFY(m_desktop->alerts.isEmpty());
        QCOMPARE(QDir(folder()).entryList(QDir::Files | QDir::Hidden).size(), 1);
    }

    void blankNote_writesNothing()
    {
        save(u" \t\n\u00A0\u2028\u3000 "_s);
        QVERIFY(!QFile::exists(folder()));
        QVERIFY(m_desktop->alerts.isEmpty());
    }

    void trimming_isUnicodeWhiteSpace_atTheEndsOnly()
    {
        const QString white = u"\t\n\v\f\r \u0085\u00A0\u1680\u2000\u2001\u2002\u2003\u2004\u2005"
                              "\u2006\u2007\u2008\u2009\u200A\u2028\u2029\u202F\u205F\u3000"_s;
        save(white + u"a\u00A0b"_s + white);
        QVERIFY(day("2026-11-15")
                    .endsWith("## 08:00\na\xC2\xA0"
                              "b\n"));
        save(u"\u200B\uFEFF\u180E"_s); // none of these is white space
        QVERIFY(day("2026-11-15").endsWith("\n## 08:00\n\xE2\x80\x8B\xEF\xBB\xBF\xE1\xA0\x8E\n"));
    }

    void innerText_isKeptByteForByte()
    {
        const QString note
            = u"one\n\n\n# two\n- three\n> four\n\tfive 👩‍👩‍👧 \u00A0"_s + u'.';
        save(note);
        QCOMPARE(day("2026-11-15"), "# 2026-11-15\n\n## 08:00\n" + note.toUtf8() + "\n");
    }

    void afterMidnight_goesToTheDayOfOpening()
    {
        // Opened at 23:58 and saved at 00:03: only the opening time counts.
        m_desktop->now = QDateTime(QDate(2026, 11, 15), QTime(23, 3), QTimeZone::utc());
        m_state->savePrompt(u"late"_s,
                            QDateTime(QDate(2026, 11, 15), QTime(22, 58), QTimeZone::utc()));
        QVERIFY(day("2026-11-15").endsWith("## 23:58\nlate\n"));
        QVERIFY(!QFile::exists(path("2026-11-16")));
    }

    void twoNotesOfOneMinute_areTwoEntries()
    {
        save(u"one"_s);
        save(u"two"_s);
        QCOMPARE(day("2026-11-15"), "# 2026-11-15\n\n## 08:00\none\n\n## 08:00\ntwo\n");
    }

    void missingFolders_areMade()
    {
        (*m_state)->setFolderPath(m_place->filePath(u"a/b/c/Journal"_s));
        save(u"deep"_s);
        QCOMPARE(day("2026-11-15"), "# 2026-11-15\n\n## 08:00\ndeep\n");
    }

    void emptyFile_getsNoHeader()
    {
        write("2026-11-15", "");
        save(u"x"_s);
        QCOMPARE(day("2026-11-15"), "\n## 08:00\nx\n");
    }

    void fileWithoutLastNewline_getsASingleOne()
    {
        write("2026-11-15", "edited elsewhere");
        save(u"x"_s);
        QCOMPARE(day("2026-11-15"), "edited elsewhere\n## 08:00\nx\n");
    }

    void deletedFile_isMadeAnew()
    {
        save(u"one"_s);
        QVERIFY(QFile::remove(path("2026-11-15")));
        save(u"two"_s);
        QCOMPARE(day("2026-11-15"), "# 2026-11-15\n\n## 08:00\ntwo\n");
    }

    void zoneChangedWhileOpen_theNewOneCounts()
    {
        const QDateTime openedAt = m_desktop->now;
        TimeZone::use("Asia/Tokyo");
        m_state->savePrompt(u"x"_s, openedAt);
        QVERIFY(day("2026-11-15").endsWith("## 18:05\nx\n")); // 09:05 UTC
    }

    void noFolder_isAnAlert()
    {
        (*m_state)->setFolderPath(QString());
        save(u"x"_s);
        QCOMPARE(m_desktop->alerts.size(), 1);
        QCOMPARE(m_desktop->alerts.constFirst().messageText, u"Journal"_s);
        QCOMPARE(m_desktop->alerts.constFirst().informativeText,
                 u"Pick a folder in Settings before saving entries."_s);
    }

    void folderOfSpaces_isAFolder()
    {
        const QString before = QDir::currentPath();
        QVERIFY(QDir::setCurrent(m_place->path()));
        (*m_state)->setFolderPath(u"   "_s);
        save(u"x"_s);
        const QByteArray written = day("2026-11-15");
        QVERIFY(QDir::setCurrent(before));
        QCOMPARE(written, "# 2026-11-15\n\n## 08:00\nx\n");
    }

    void tilde_isAPlainCharacter()
    {
        const QString before = QDir::currentPath();
        QVERIFY(QDir::setCurrent(m_place->path()));
        (*m_state)->setFolderPath(u"~/notes"_s);
        save(u"x"_s);
        QVERIFY(QDir::setCurrent(before));
        QVERIFY(QFile::exists(m_place->filePath(u"~/notes/2026-11-15.md"_s)));
    }

    void folderIsAFile_isAnAlert()
    {
        QFile file(folder());
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write("mine") == 4);
        file.close();
        save(u"x"_s);
        QCOMPARE(alertText(), u"Could not save entry: Not a directory"_s);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), "mine");
    }

    void dayFileIsADirectory_isAnAlert()
    {
        QVERIFY(QDir().mkpath(path("2026-11-15")));
        save(u"x"_s);
        QCOMPARE(alertText(), u"Could not save entry: Is a directory"_s);
    }

    void dayFileIsAFifo_isAnAlert_atOnce()
    {
        QVERIFY(QDir().mkpath(folder()));
        QCOMPARE(mkfifo(QFile::encodeName(path("2026-11-15")).constData(), 0600), 0);
        save(u"x"_s);
        QCOMPARE(alertText(), u"Could not save entry: No such device or address"_s);
    }

    void failedSave_closesThePromptAfterTheAlert()
    {
        (*m_state)->setFolderPath(QString());
        (*m_state)->showPrompt();
        QWidget *const prompt = m_state->promptWindow();
        QVERIFY(QTest::qWaitForWindowActive(prompt));
        QTest::keyClicks(prompt->focusWidget(), u"note"_s);
        QTest::keyClick(prompt->focusWidget(), Qt::Key_Return, Qt::ControlModifier);
        QCOMPARE(m_desktop->alerts.size(), 1);
        QCOMPARE(m_desktop->alerts.constFirst().over, prompt);
        QVERIFY(m_desktop->alerts.constFirst().wasPromptVisible);
        QVERIFY(!m_state->promptWindow());
    }

private:
    [[nodiscard]] QString folder() const { return m_place->filePath(u"Journal"_s); }
    [[nodiscard]] QString path(const char *name) const
    {
        return (*m_state)->folderPath() + u'/' + QLatin1String(name) + u".md"_s;
    }
    void save(const QString &text) { m_state->savePrompt(text, morning); }
    void write(const char *name, const QByteArray &bytes)
    {
        QVERIFY(QDir().mkpath(folder()));
        QFile file(path(name));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    }
    [[nodiscard]] QByteArray day(const char *name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no file)");
    }
    [[nodiscard]] QString alertText() const
    {
        return m_desktop->alerts.size() == 1 ? m_desktop->alerts.constFirst().informativeText
                                             : QString();
    }

    std::unique_ptr<TimeZone> m_zone;
    std::unique_ptr<QTemporaryDir> m_place;
    std::unique_ptr<TestDesktop> m_desktop;
    std::unique_ptr<AppStateForTests> m_state;
};

QTEST_MAIN(SavePromptTest)
#include "SavePromptTest.moc"
