// SPDX-License-Identifier: MIT
#include "platform/generic/PosixFiles.h"

#include "support/FileSizeLimit.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QScopeGuard>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <atomic>
#include <csignal>
#include <fcntl.h>
#include <sys/stat.h>
#include <thread>
#include <vector>

using namespace Qt::StringLiterals;

namespace
{
/// A lease on a file, like a file server's: returned when the kernel asks for it (fcntl(2)).
class Lease final
{
public:
    explicit Lease(const QByteArray &path)
        : m_descriptor(::open(path.constData(), O_RDONLY))
    {
        std::signal(SIGIO, [](int) { ::fcntl(leased, F_SETLEASE, F_UNLCK); });
        leased = m_descriptor;
        ::fcntl(m_descriptor, F_SETLEASE, F_WRLCK);
    }
    ~Lease()
    {
        ::close(m_descriptor);
        std::signal(SIGIO, SIG_DFL);
    }
    Q_DISABLE_COPY_MOVE(Lease)

    [[nodiscard]] bool isHeld() const { return ::fcntl(m_descriptor, F_GETLEASE) == F_WRLCK; }

private:
    static inline int leased = -1;
    int m_descriptor;
};

QByteArray contents(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no file)");
}
} // namespace

class PosixFilesTest final : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_place = std::make_unique<QTemporaryDir>(); }

    void newFile_isWhole_withTheUsersMask()
    {
        const mode_t before = umask(027);
        QVERIFY(!PosixFiles().appendOrCreate(path(u"new"_s), "more\n", "whole\n"));
        umask(before);
        QCOMPARE(contents(path(u"new"_s)), "whole\n");
        struct stat status {
        };
        QCOMPARE(stat(QFile::encodeName(path(u"new"_s)).constData(), &status), 0);
        QCOMPARE(status.st_mode & 0777U, 0640U);
        QCOMPARE(names(), QStringList{u"new"_s});
    }

    void newFile_onAFullDisk_leavesNothing()
    {
        const FileSizeLimit limit(10);
        const auto failure = PosixFiles().appendOrCreate(path(u"new"_s), "", QByteArray(100, 'x'));
        QCOMPARE(failure, std::optional(u"File too large"_s));
        QCOMPARE(names(), QStringList());
    }

    void newFile_withoutFolder_says()
    {
        QCOMPARE(PosixFiles().appendOrCreate(path(u"none/new"_s), "x", "x"),
                 std::optional(u"No such file or directory"_s));
        QCOMPARE(names(), QStringList());
    }

    void existingFile_getsTheAddition_atItsEnd()
    {
        write("one\n");
        QVERIFY(!PosixFiles().appendOrCreate(path(u"day"_s), "two\n", "whole\n"));
        QCOMPARE(contents(path(u"day"_s)), "one\ntwo\n");
    }

    void link_staysALink()
    {
        write("one\n");
        QVERIFY(QFile::link(path(u"day"_s), path(u"link"_s)));
        QVERIFY(!PosixFiles().appendOrCreate(path(u"link"_s), "two\n", "whole\n"));
        QCOMPARE(contents(path(u"day"_s)), "one\ntwo\n");
        QVERIFY(QFileInfo(path(u"link"_s)).isSymLink());
    }

    void linkInACircle_says()
    {
        QVERIFY(QFile::link(u"circle"_s, path(u"circle"_s)));
        QCOMPARE(PosixFiles().appendOrCreate(path(u"circle"_s), "x", "x"),
                 std::optional(u"Too many levels of symbolic links"_s));
    }

    void existingFile_onAFullDisk_keepsWhatWasWritten()
    {
        write("12345");
        const FileSizeLimit limit(10);
        QCOMPARE(PosixFiles().appendOrCreate(path(u"day"_s), "67890abc", "whole"),
                 std::optional(u"File too large"_s));
        QCOMPARE(contents(path(u"day"_s)), "1234567890");
    }

    void fifoWithAReader_isRefused()
    {
        const QByteArray fifo = QFile::encodeName(path(u"fifo"_s));
        QCOMPARE(mkfifo(fifo.constData(), 0600), 0);
        QFile reader;
        const int descriptor = ::open(fifo.constData(), O_RDONLY | O_NONBLOCK);
        QVERIFY(reader.open(descriptor, QIODevice::ReadOnly, QFile::AutoCloseHandle));
        QCOMPARE(PosixFiles().appendOrCreate(path(u"fifo"_s), "x", "x"),
                 std::optional(u"Invalid argument"_s));
    }

    void device_isRefused() { QVERIFY(PosixFiles().appendOrCreate(u"/dev/full"_s, "x", "x")); }

    void lease_isGivenBackInTime()
    {
        write("one\n");
        const Lease lease(QFile::encodeName(path(u"day"_s)));
        QVERIFY(lease.isHeld());
        QVERIFY(!PosixFiles().appendOrCreate(path(u"day"_s), "two\n", "whole\n"));
        QVERIFY(!lease.isHeld());
        QCOMPARE(contents(path(u"day"_s)), "one\ntwo\n");
    }

    void manyWriters_loseNothing()
    {
        constexpr int writers = 4;
        constexpr int rounds = 200;
        const auto write = [this](int writer) {
            for (int round = 0; round < rounds; ++round) {
                const QString file = path(QString::number(round));
                const QByteArray mark = QByteArray::number(writer) + '\n';
                if (PosixFiles().appendOrCreate(file, mark, "new\n" + mark)) {
                    ++m_failures;
                }
            }
        };
        std::vector<std::thread> threads;
        threads.reserve(writers);
        for (int writer = 0; writer < writers; ++writer) {
            threads.emplace_back(write, writer);
        }
        for (std::thread &thread : threads) {
            thread.join();
        }
        QCOMPARE(m_failures.load(), 0);
        for (int round = 0; round < rounds; ++round) {
            QList<QByteArray> lines = contents(path(QString::number(round))).split('\n');
            QCOMPARE(lines.takeFirst(), "new");
            std::sort(lines.begin(), lines.end());
            QCOMPARE(lines, (QList<QByteArray>{"", "0", "1", "2", "3"}));
        }
        QCOMPARE(names().size(), rounds);
    }

    void folderThatRemembersThatThereWasNothing_isAskedAnew()
    {
        const QString real = path(u"real"_s);
        QVERIFY(!PosixFiles().ensureDirectory(real));
        QVERIFY(!PosixFiles().ensureDirectory(path(u"mount"_s)));
        if (QProcess::execute(u"bindfs"_s,
                              {u"-o"_s, u"negative_timeout=600"_s, real, path(u"mount"_s)})
            != 0) {
            QSKIP("no file system in user space can be mounted here (bindfs, /dev/fuse)");
        }
        const auto unmount = qScopeGuard([this] {
            QProcess::execute(u"fusermount"_s, {u"-u"_s, u"-z"_s, path(u"mount"_s)});
        });
        QVERIFY(!QFile::exists(path(u"mount/day"_s)));
        QFile theirs(path(u"real/day"_s));
        QVERIFY(theirs.open(QIODevice::WriteOnly) && theirs.write("theirs\n") == 7);
        theirs.close();
        if (QFile::exists(path(u"mount/day"_s))) {
            QSKIP("this bindfs does not honour negative_timeout (seen with 1.18)");
        }
        QVERIFY(!PosixFiles().appendOrCreate(path(u"mount/day"_s), "added\n", "whole\n"));
        QCOMPARE(contents(path(u"real/day"_s)), "theirs\nadded\n");
        QCOMPARE(QDir(real).entryList(QDir::Files | QDir::Hidden), QStringList{u"day"_s});
    }

    void nameThatIsNoName_isRefused_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("NUL") << u"a"_s + QChar(QChar::Null) + u"b"_s;
        QTest::newRow("lost byte") << u"caf\uFFFD"_s;
        QTest::newRow("lone surrogate") << u"a"_s + QChar(0xD800);
    }
    void nameThatIsNoName_isRefused()
    {
        QFETCH(const QString, name);
        QVERIFY(PosixFiles().appendOrCreate(path(name), "x", "x"));
        QVERIFY(PosixFiles().ensureDirectory(path(name)));
        QCOMPARE(names(), QStringList());
    }

    void directories_areMade_orLeftAlone()
    {
        QVERIFY(!PosixFiles().ensureDirectory(path(u"a/b/c"_s)));
        QVERIFY(QFileInfo(path(u"a/b/c"_s)).isDir());
        QVERIFY(!PosixFiles().ensureDirectory(path(u"a/b"_s)));
        write("x");
        QVERIFY(!PosixFiles().ensureDirectory(path(u"day"_s)));
        QCOMPARE(contents(path(u"day"_s)), "x");
    }

    void directories_haveTheUsersMask()
    {
        const mode_t before = umask(027);
        QVERIFY(!PosixFiles().ensureDirectory(path(u"a/b"_s)));
        umask(before);
        for (const QString &made : {path(u"a"_s), path(u"a/b"_s)}) {
            struct stat status {
            };
            QCOMPARE(stat(QFile::encodeName(made).constData(), &status), 0);
            QCOMPARE(status.st_mode & 0777U, 0750U);
        }
    }

    void directories_throughAFile_say()
    {
        write("x");
        QCOMPARE(PosixFiles().ensureDirectory(path(u"day/a/b"_s)),
                 std::optional(u"Not a directory"_s));
    }

private:
    [[nodiscard]] QString path(const QString &name) const { return m_place->filePath(name); }
    void write(const QByteArray &bytes) const
    {
        QFile file(path(u"day"_s));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    }
    [[nodiscard]] QStringList names() const
    {
        return QDir(m_place->path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }

    std::unique_ptr<QTemporaryDir> m_place;
    std::atomic<int> m_failures = 0;
};

QTEST_GUILESS_MAIN(PosixFilesTest)
#include "PosixFilesTest.moc"
