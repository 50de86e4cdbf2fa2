// SPDX-License-Identifier: MIT
#include "support/FileSizeLimit.h"
#include "support/SaveFixture.h"

#include <cerrno>
#include <sys/wait.h>
#include <unistd.h>

/// Each call on a file that a save makes fails once, or is the last before the program is killed,
/// and the disk is full at each byte.
class SavePromptAnyCallTest final : public SaveFixture
{
    Q_OBJECT

private slots:
    void anyCall_data()
    {
        QTest::addColumn<bool>("isThere");
        QTest::addColumn<int>("error");
        QTest::newRow("new file, input/output error") << false << EIO;
        QTest::newRow("new file, full disk") << false << ENOSPC;
        QTest::newRow("day file, input/output error") << true << EIO;
        QTest::newRow("day file, full disk") << true << ENOSPC;
    }
    /// Whichever call fails, the note is there or an alert says that it is not.
    void anyCall()
    {
        QFETCH(const bool, isThere);
        QFETCH(const int, error);
        const int calls = callsOfASave(isThere);
        QVERIFY(calls > 4);
        const auto descriptors = openDescriptors();
        for (int failing = 0; failing < calls; ++failing) {
            prepare(isThere);
            const qsizetype alerts = m_desktop->alerts.size();
            {
                int made = 0;
                const FileFaults faults(m_place->path().toStdString(), [&](const FileCall &) {
                    return made++ == failing ? error : 0;
                });
                save();
            }
            const bool isSaved = day() == expectedDay(isThere);
            QVERIFY2(isSaved || m_desktop->alerts.size() == alerts + 1,
                     qPrintable(u"call %1: %2"_s.arg(failing).arg(QString::fromUtf8(day()))));
            QVERIFY2(day().startsWith(isThere ? m_earlier : QByteArray()), day().constData());
            QVERIFY(names().isEmpty() || names() == QStringList{dayName()});
            QCOMPARE(openDescriptors(), descriptors);
        }
    }

    void killedAtAnyCall_data()
    {
        QTest::addColumn<bool>("isThere");
        QTest::newRow("new file") << false;
        QTest::newRow("day file") << true;
    }
    /// Whenever the program is killed, what was there stays, and the next note is saved after it.
    void killedAtAnyCall()
    {
        QFETCH(const bool, isThere);
        const int calls = callsOfASave(isThere);
        for (int last = 0; last < calls; ++last) {
            prepare(isThere);
            const QByteArray before = day();
            const pid_t child = fork();
            QVERIFY(child >= 0);
            if (child == 0) {
                int made = 0;
                const FileFaults faults(m_place->path().toStdString(), [&](const FileCall &) {
                    if (made++ == last) {
                        _exit(0);
                    }
                    return 0;
                });
                save();
                _exit(1);
            }
            int status = -1;
            QCOMPARE(waitpid(child, &status, 0), child);
            QCOMPARE(status, 0);
            const QByteArray left = day();
            QVERIFY2(left == before || left == expectedDay(isThere),
                     qPrintable(u"call %1: %2"_s.arg(last).arg(QString::fromUtf8(left))));
            save();
            QVERIFY(left == noFile || day().startsWith(left));
            QVERIFY(day().endsWith(entry));
            QVERIFY(m_desktop->alerts.isEmpty());
        }
    }

    void diskFullAtAnyByte_data() { killedAtAnyCall_data(); }
    /// Wherever the disk becomes full, an alert says so, and the next note is saved once there is
    /// room again.
    void diskFullAtAnyByte()
    {
        QFETCH(const bool, isThere);
        const QByteArray before = isThere ? m_earlier : QByteArray();
        const qsizetype needed = expectedDay(isThere).size();
        for (qsizetype room = before.size(); room <= needed; ++room) {
            prepare(isThere);
            const qsizetype alerts = m_desktop->alerts.size();
            {
                const FileSizeLimit limit(static_cast<rlim_t>(room));
                save();
            }
            const bool fits = room == needed;
            QCOMPARE(m_desktop->alerts.size(), alerts + (fits ? 0 : 1));
            // A new file is there as a whole or not at all.
            QCOMPARE(names(), isThere || fits ? QStringList{dayName()} : QStringList());
            const QByteArray left = isThere || fits ? day() : QByteArray();
            QCOMPARE(left, expectedDay(isThere).first(left.size()));
            QVERIFY(left.startsWith(before));
            save();
            QVERIFY(day().startsWith(left));
            QVERIFY(day().endsWith('\n' + entry));
            QCOMPARE(m_desktop->alerts.size(), alerts + (fits ? 0 : 1));
        }
    }

private:
    /// Makes the folder as it is before the save.
    void prepare(bool isThere) const
    {
        for (const QString &name : names()) {
            QVERIFY(QFile::remove(m_place->filePath(name)));
        }
        if (isThere) {
            write(m_earlier);
        }
    }

    static qsizetype openDescriptors()
    {
        return QDir(u"/proc/self/fd"_s).entryList(QDir::AllEntries | QDir::System).size();
    }

    [[nodiscard]] QByteArray expectedDay(bool isThere) const
    {
        return isThere ? m_earlier + '\n' + entry : newFile;
    }

    /// How many calls on files a save makes where nothing goes wrong.
    int callsOfASave(bool isThere)
    {
        prepare(isThere);
        int calls = 0;
        {
            const FileFaults faults(m_place->path().toStdString(), [&](const FileCall &) {
                ++calls;
                return 0;
            });
            save();
        }
        return day() == expectedDay(isThere) ? calls : 0;
    }

    const QByteArray m_earlier = "# 2026-11-15\n\n## 07:00\nearlier\n";
};

QTEST_MAIN(SavePromptAnyCallTest)
#include "SavePromptAnyCallTest.moc"
