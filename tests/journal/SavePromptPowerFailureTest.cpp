// SPDX-License-Identifier: MIT
#include "support/ForgetfulDisk.h"
#include "support/SaveFixture.h"

#include <chrono>
#include <fcntl.h>
#include <unistd.h>

Q_DECLARE_METATYPE(ForgetfulDisk::Kept)

/// Saves on a disk that loses what was not synced, answers late, or goes away.
class SavePromptPowerFailureTest final : public SaveFixture
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        const QTemporaryDir place;
        if (!ForgetfulDisk(place.path().toStdString()).isMounted()) {
            QSKIP("no file system in user space can be mounted here (/dev/fuse)");
        }
    }

    void savedNote_survives_data() { addStates(); }
    /// Whatever the disk then loses.
    void savedNote_survives()
    {
        QFETCH(const bool, isThere);
        QFETCH(const ForgetfulDisk::Kept, kept);
        ForgetfulDisk disk(m_place->path().toStdString());
        prepare();
        save();
        QCOMPARE(m_desktop->alerts.size(), 0);
        const ForgetfulDisk::Files left = disk.afterPowerFailure(kept);
        QCOMPARE(left.size(), 1U);
        QCOMPARE(left.begin()->first, m_folder.toStdString() + "/2026-11-15.md");
        QCOMPARE(left.begin()->second,
                 (isThere ? m_earlier + '\n' + entry : newFile).toStdString());
    }

    void powerFailureDuringASave_tearsAtMostTheNote_data() { addStates(); }
    void powerFailureDuringASave_tearsAtMostTheNote()
    {
        QFETCH(const bool, isThere);
        QFETCH(const ForgetfulDisk::Kept, kept);
        ForgetfulDisk disk(m_place->path().toStdString());
        prepare();
        QList<ForgetfulDisk::Files> failures;
        disk.setInterference([&](std::string_view) {
            failures.append(disk.afterPowerFailure(kept));
            return 0;
        });
        save();
        QCOMPARE_GE(failures.size(), 2);
        const std::string day = m_folder.toStdString() + "/2026-11-15.md";
        const QByteArray whole = isThere ? m_earlier + '\n' + entry : newFile;
        for (const ForgetfulDisk::Files &left : failures) {
            const auto found = left.find(day);
            QVERIFY(found != left.end() || !isThere);
            const QByteArray bytes
                = found == left.end() ? QByteArray() : QByteArray::fromStdString(found->second);
            QVERIFY2(whole.startsWith(bytes), bytes.constData());
            QVERIFY(isThere ? bytes.startsWith(m_earlier) : bytes.isEmpty() || bytes == whole);
        }
    }

    void lateAnswers_areWaitedFor_data() { addDays(); }
    void lateAnswers_areWaitedFor()
    {
        QFETCH(const bool, isThere);
        ForgetfulDisk disk(m_place->path().toStdString());
        prepare();
        disk.setInterference([](std::string_view) {
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
            return 0;
        });
        save();
        QCOMPARE(m_desktop->alerts.size(), 0);
        QCOMPARE(day(), isThere ? m_earlier + '\n' + entry : newFile);
    }

    void diskThatGoesAway_isReported_andUsedAgain_data() { addDays(); }
    /// From each operation on, as when a network is disconnected, and later is not.
    void diskThatGoesAway_isReported_andUsedAgain()
    {
        ForgetfulDisk disk(m_place->path().toStdString());
        prepare();
        int operations = 0;
        disk.setInterference([&](std::string_view) {
            ++operations;
            return 0;
        });
        save();
        QCOMPARE_GE(operations, 2);
        for (int last = 0; last < operations; ++last) {
            const QByteArray before = day();
            const qsizetype alerts = m_desktop->alerts.size();
            int made = 0;
            disk.setInterference([&](std::string_view) { return made++ >= last ? ENOTCONN : 0; });
            save();
            const bool isSaved = day() == before + '\n' + entry;
            QVERIFY(isSaved || m_desktop->alerts.size() == alerts + 1);
            QVERIFY(day().startsWith(before));

            disk.setInterference({});
            const QByteArray between = day();
            const qsizetype alertsBetween = m_desktop->alerts.size();
            save();
            QCOMPARE(m_desktop->alerts.size(), alertsBetween);
            QCOMPARE(day(), between + '\n' + entry);
        }
    }

private:
    const QByteArray m_earlier = "# 2026-11-15\n\n## 07:00\nearlier\n";

    static void addDays()
    {
        QTest::addColumn<bool>("isThere");
        QTest::addColumn<QString>("folder");
        QTest::newRow("new file") << false << QString();
        QTest::newRow("day file") << true << QString();
    }

    static void addStates()
    {
        using enum ForgetfulDisk::Kept;
        QTest::addColumn<bool>("isThere");
        QTest::addColumn<QString>("folder");
        QTest::addColumn<ForgetfulDisk::Kept>("kept");
        for (const auto &[name, kept] :
             {std::pair("nothing", Nothing), {"names", Names}, {"half", NamesAndHalfOfTheBytes}}) {
            QTest::addRow("new file, %s kept", name) << false << QString() << kept;
            QTest::addRow("day file, %s kept", name) << true << QString() << kept;
            QTest::addRow("new folders, %s kept", name) << false << u"/a/b"_s << kept;
        }
    }

    /// Makes the disk as it is before the save.
    void prepare()
    {
        QFETCH(const bool, isThere);
        QFETCH(const QString, folder);
        m_folder = folder;
        if (isThere) {
            write(m_earlier);
            for (const QString &path : {path(), m_place->path()}) {
                const int file = ::open(path.toLocal8Bit().constData(), O_RDONLY);
                QCOMPARE(fsync(file), 0);
                ::close(file);
            }
        }
        (*m_state)->setFolderPath(m_place->path() + folder);
    }

    QString m_folder;
};

QTEST_MAIN(SavePromptPowerFailureTest)
#include "SavePromptPowerFailureTest.moc"
