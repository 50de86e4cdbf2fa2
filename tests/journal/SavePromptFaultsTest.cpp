// SPDX-License-Identifier: MIT
#include "support/SaveFixture.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>

/// Saving to a failing disk, and while other programs change the same files.
class SavePromptFaultsTest final : public SaveFixture
{
    Q_OBJECT

private slots:
    void unreadableDayFile_staysAsItIs_data()
    {
        QTest::addColumn<int>("error");
        for (const int error : {EIO, ESTALE, ETIMEDOUT, EACCES, ENOMEM, ELOOP}) {
            QTest::newRow(std::strerror(error)) << error;
        }
    }
    void unreadableDayFile_staysAsItIs()
    {
        QFETCH(const int, error);
        write("earlier notes\n");
        {
            const FileFaults faults(dayPath(), [=](const FileCall &call) {
                return call.name == "stat" || call.name == "lstat" || call.name == "open" ? error
                                                                                          : 0;
            });
            save();
        }
        QCOMPARE(day(), "earlier notes\n");
        QCOMPARE(alertText(),
                 u"Could not save entry: "_s + QString::fromLocal8Bit(std::strerror(error)));
        QCOMPARE(names(), QStringList{dayName()});
    }

    void unreadableFolder_isAnAlert()
    {
        const FileFaults faults(m_place->path().toStdString(), [this](const FileCall &call) {
            return call.name == "stat" && call.path == m_place->path().toStdString() ? EIO : 0;
        });
        save();
        QCOMPARE(alertText(), u"Could not save entry: Input/output error"_s);
        QCOMPARE(names(), QStringList());
    }

    /// So that a day file that may only be written to is appended to, and nobody's notes are read.
    void dayFile_isOpenedForWritingAlone()
    {
        write("old\n");
        QList<int> accesses;
        {
            const FileFaults faults(dayPath(), [&](const FileCall &call) {
                if (call.name == "open") {
                    accesses.append(call.openFlags & O_ACCMODE);
                }
                return 0;
            });
            save();
        }
        QVERIFY(day().endsWith(entry));
        QCOMPARE(accesses, QList<int>{O_WRONLY});
    }

    void folderThatCannotBeMade_givesTheReason_data()
    {
        QTest::addColumn<int>("error");
        QTest::addColumn<QString>("reason");
        QTest::newRow("no right") << EACCES << u"Permission denied"_s;
        QTest::newRow("read-only disk") << EROFS << u"Read-only file system"_s;
    }

    void folderThatCannotBeMade_givesTheReason()
    {
        QFETCH(const int, error);
        QFETCH(const QString, reason);
        (*m_state)->setFolderPath(m_place->filePath(u"Journal"_s));
        {
            const FileFaults faults(m_place->path().toStdString(), [=](const FileCall &call) {
                return call.name == "mkdir" ? error : 0;
            });
            save();
        }
        QCOMPARE(m_desktop->alerts.size(), 1);
        QCOMPARE(alertText(), u"Could not save entry: "_s + reason);
        QVERIFY(names().isEmpty());
    }

    void fileMadeByAnotherProgram_isNeverReplaced_data()
    {
        QTest::addColumn<bool>("knowsNoReplace");
        QTest::addColumn<bool>("knowsLinks");
        QTest::newRow("rename without replacing") << true << true;
        QTest::newRow("only hard links") << false << true;
        QTest::newRow("neither") << false << false;
    }
    void fileMadeByAnotherProgram_isNeverReplaced()
    {
        QFETCH(const bool, knowsNoReplace);
        QFETCH(const bool, knowsLinks);
        bool isMade = false;
        {
            const FileFaults faults(dayPath(), [&](const FileCall &call) {
                const bool isPlacing = call.name == "renameat2" || call.name == "rename";
                if (isPlacing && !isMade) {
                    isMade = true;
                    write("theirs\n");
                }
                if (call.name == "renameat2" && !knowsNoReplace) {
                    return EINVAL;
                }
                return call.name == "link" && !knowsLinks ? EPERM : 0;
            });
            save();
        }
        QVERIFY(isMade);
        QCOMPARE(day(), "theirs\n\n" + entry);
        QVERIFY(m_desktop->alerts.isEmpty());
        QCOMPARE(names(), QStringList{dayName()});
    }

    void newFile_whereThereIsNoSafeRename_data()
    {
        QTest::addColumn<int>("linkError");
        QTest::newRow("links") << 0;
        QTest::newRow("FAT") << EPERM;
        QTest::newRow("not supported") << EOPNOTSUPP;
    }
    void newFile_whereThereIsNoSafeRename()
    {
        QFETCH(const int, linkError);
        {
            const FileFaults faults(dayPath(), [=](const FileCall &call) {
                if (call.name == "renameat2") {
                    return EINVAL;
                }
                return call.name == "link" ? linkError : 0;
            });
            save();
        }
        QCOMPARE(day(), newFile);
        QVERIFY(m_desktop->alerts.isEmpty());
        QCOMPARE(names(), QStringList{dayName()});
    }

    void fileThatComesAndGoes_isGivenUp()
    {
        int rounds = 0;
        {
            const FileFaults faults(dayPath(), [&](const FileCall &call) {
                if (call.name == "open") {
                    QFile::remove(path());
                } else if (call.name == "renameat2") {
                    ++rounds;
                    write("theirs\n");
                }
                return 0;
            });
            save();
        }
        QCOMPARE(rounds, 5);
        QCOMPARE(day(), "theirs\n");
        QCOMPARE(alertText(), u"Could not save entry: File exists"_s);
        QCOMPARE(names(), QStringList{dayName()});
    }

    void fileRenamedAwayBeforeOpening_isMadeAnew()
    {
        write("earlier\n");
        bool isGone = false;
        {
            const FileFaults faults(dayPath(), [&](const FileCall &call) {
                if (call.name == "open" && !std::exchange(isGone, true)) {
                    QFile::rename(path(), m_place->filePath(u"elsewhere"_s));
                }
                return 0;
            });
            save();
        }
        QCOMPARE(day(), newFile);
        QVERIFY(m_desktop->alerts.isEmpty());
    }

    void fileReplacedAfterOpening_getsTheNote()
    {
        write("old\n");
        bool isReplaced = false;
        {
            const FileFaults faults(dayPath(), [&](const FileCall &call) {
                if (call.name == "fstat" && !std::exchange(isReplaced, true)) {
                    replace("new\n");
                }
                return 0;
            });
            save();
        }
        QVERIFY(isReplaced);
        QCOMPARE(day(), "new\n\n" + entry);
        QVERIFY(m_desktop->alerts.isEmpty());
    }

    void fileRemovedAfterOpening_isMadeAnew()
    {
        write("old\n");
        bool isRemoved = false;
        {
            const FileFaults faults(dayPath(), [&](const FileCall &call) {
                if (call.name == "fstat" && !std::exchange(isRemoved, true)) {
                    QFile::remove(path());
                }
                return 0;
            });
            save();
        }
        QCOMPARE(day(), newFile);
        QVERIFY(m_desktop->alerts.isEmpty());
    }

    void diskThatCannotSync_isNoFailure_data()
    {
        QTest::addColumn<int>("error");
        for (const int error : {EINVAL, ENOTSUP}) {
            QTest::newRow(std::strerror(error)) << error;
        }
    }
    void diskThatCannotSync_isNoFailure()
    {
        QFETCH(const int, error);
        const auto isSync = [=](const FileCall &call) { return call.name == "fsync" ? error : 0; };
        {
            const FileFaults faults(m_place->path().toStdString(), isSync);
            save();
            save();
        }
        QCOMPARE(day(), newFile + '\n' + entry);
        QVERIFY(m_desktop->alerts.isEmpty());
    }

    void failingSync_isAnAlert()
    {
        write("old\n");
        {
            const FileFaults faults(
                dayPath(), [](const FileCall &call) { return call.name == "fsync" ? EIO : 0; });
            save();
        }
        QCOMPARE(alertText(), u"Could not save entry: Input/output error"_s);
        QVERIFY(day().startsWith("old\n"));
    }

    void failingClose_isAnAlert()
    {
        write("old\n");
        {
            const FileFaults faults(
                dayPath(), [](const FileCall &call) { return call.name == "close" ? EDQUOT : 0; });
            save();
        }
        QCOMPARE(alertText(), u"Could not save entry: Disk quota exceeded"_s);
    }

    void lease_isWaitedFor()
    {
        write("old\n");
        int refusals = 0;
        {
            const FileFaults faults(dayPath(), [&](const FileCall &call) {
                return call.name == "open" && refusals < 3 ? ++refusals, EAGAIN : 0;
            });
            save();
        }
        QCOMPARE(refusals, 3);
        QCOMPARE(day(), "old\n\n" + entry);
        QVERIFY(m_desktop->alerts.isEmpty());
    }

    void leaseThatIsNeverGivenBack_isAnAlert()
    {
        write("old\n");
        {
            const FileFaults faults(
                dayPath(), [](const FileCall &call) { return call.name == "open" ? EAGAIN : 0; });
            save();
        }
        QCOMPARE(alertText(), u"Could not save entry: Resource temporarily unavailable"_s);
        QCOMPARE(day(), "old\n");
    }

    void linkThatLeadsNowhere_isFollowed_data()
    {
        QTest::addColumn<bool>("isRelative");
        QTest::newRow("relative") << true;
        QTest::newRow("absolute") << false;
    }
    void linkThatLeadsNowhere_isFollowed()
    {
        QFETCH(const bool, isRelative);
        const QString drive = m_place->filePath(u"drive"_s);
        QVERIFY(QDir().mkpath(drive));
        QVERIFY(QFile::link((isRelative ? u"drive"_s : drive) + u"/today.md"_s, path()));
        save();
        QVERIFY(QFileInfo(path()).isSymLink());
        QCOMPARE(day(), newFile);
        QCOMPARE(QDir(drive).entryList(QDir::Files | QDir::Hidden), QStringList{u"today.md"_s});
        save();
        QCOMPARE(day(), newFile + '\n' + entry);
        QVERIFY(m_desktop->alerts.isEmpty());
    }

    void linkToAMissingDrive_isAnAlert()
    {
        QVERIFY(QFile::link(u"away/today.md"_s, path()));
        save();
        QCOMPARE(alertText(), u"Could not save entry: No such file or directory"_s);
        QVERIFY(QFileInfo(path()).isSymLink());
        QCOMPARE(names(), QStringList{dayName()});
    }

    void folderThatIsNotUtf8_isNeverMade()
    {
        // A byte that is not valid UTF-8 becomes this character in a QString.
        const QString folder = m_place->filePath(u"caf\uFFFD"_s);
        (*m_state)->setFolderPath(folder);
        save();
        QCOMPARE(m_desktop->alerts.size(), 1);
        QVERIFY(alertText().startsWith(u"Could not save entry: "_s));
        QCOMPARE(names(), QStringList());
    }

private:
    /// Replaces the old file with a new one, as editors do when they save.
    void replace(const QByteArray &bytes) const
    {
        QFile file(m_place->filePath(u"new"_s));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
        file.close();
        QCOMPARE(std::rename(QFile::encodeName(file.fileName()).constData(),
                             QFile::encodeName(path()).constData()),
                 0);
    }
    [[nodiscard]] QString alertText() const
    {
        return m_desktop->alerts.size() == 1 ? m_desktop->alerts.constFirst().informativeText
                                             : QString();
    }
};

QTEST_MAIN(SavePromptFaultsTest)
#include "SavePromptFaultsTest.moc"
