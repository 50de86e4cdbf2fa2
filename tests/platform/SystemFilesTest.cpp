// SPDX-License-Identifier: MIT
#include "platform/Files.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace
{
/// A disk that is full after some bytes, as far as this process can tell.
class FileSizeLimit final
{
public:
    explicit FileSizeLimit(rlim_t bytes)
    {
        getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit lowered{bytes, m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &lowered);
    }
    ~FileSizeLimit() { setrlimit(RLIMIT_FSIZE, &m_before); }
    Q_DISABLE_COPY_MOVE(FileSizeLimit)

private:
    rlimit m_before{};
};

QByteArray contents(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no file)");
}
} // namespace

class SystemFilesTest final : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { std::signal(SIGXFSZ, SIG_IGN); }
    void init() { m_place = std::make_unique<QTemporaryDir>(); }

    void writeWhole_makesTheFile_withTheUsersMask()
    {
        const mode_t before = umask(027);
        QVERIFY(!Files::writeWhole(path(u"new"_s), "bytes\n"));
        umask(before);
        QCOMPARE(contents(path(u"new"_s)), "bytes\n");
        struct stat status {
        };
        QCOMPARE(stat(QFile::encodeName(path(u"new"_s)), &status), 0);
        QCOMPARE(status.st_mode & 0777U, 0640U);
        QCOMPARE(names(), QStringList{u"new"_s});
    }

    void writeWhole_onAFullDisk_leavesNothing()
    {
        const FileSizeLimit limit(10);
        const auto failure = Files::writeWhole(path(u"new"_s), QByteArray(100, 'x'));
        QCOMPARE(failure, std::optional(u"File too large"_s));
        QCOMPARE(names(), QStringList());
    }

    void writeWhole_withoutFolder_says()
    {
        QCOMPARE(Files::writeWhole(path(u"none/new"_s), "x"),
                 std::optional(u"No such file or directory"_s));
    }

    void append_addsAtTheEnd()
    {
        QVERIFY(!Files::writeWhole(path(u"day"_s), "one\n"));
        QVERIFY(!Files::append(path(u"day"_s), "two\n"));
        QCOMPARE(contents(path(u"day"_s)), "one\ntwo\n");
    }

    void append_keepsLinks()
    {
        QVERIFY(!Files::writeWhole(path(u"target"_s), "one\n"));
        QVERIFY(QFile::link(path(u"target"_s), path(u"link"_s)));
        QVERIFY(!Files::append(path(u"link"_s), "two\n"));
        QCOMPARE(contents(path(u"target"_s)), "one\ntwo\n");
    }

    void append_onAFullDisk_keepsWhatWasWritten()
    {
        QVERIFY(!Files::writeWhole(path(u"day"_s), "12345"));
        const FileSizeLimit limit(10);
        QCOMPARE(Files::append(path(u"day"_s), "67890abc"), std::optional(u"File too large"_s));
        QCOMPARE(contents(path(u"day"_s)), "1234567890");
    }

    void append_neverMakesAFile()
    {
        QCOMPARE(Files::append(path(u"none"_s), "x"),
                 std::optional(u"No such file or directory"_s));
        QCOMPARE(names(), QStringList());
    }

    void append_toAFifoWithAReader_isRefused()
    {
        const QByteArray fifo = QFile::encodeName(path(u"fifo"_s));
        QCOMPARE(mkfifo(fifo, 0600), 0);
        QFile reader;
        const int descriptor = ::open(fifo, O_RDONLY | O_NONBLOCK);
        QVERIFY(reader.open(descriptor, QIODevice::ReadOnly, QFile::AutoCloseHandle));
        QCOMPARE(Files::append(path(u"fifo"_s), "x"), std::optional(u"Invalid argument"_s));
    }

    void append_toADevice_isRefused() { QVERIFY(Files::append(u"/dev/full"_s, "x")); }

    void exists_isTrueOfAnyKind_butNotOfALinkToNowhere()
    {
        QVERIFY(Files::exists(m_place->path()));
        QVERIFY(Files::exists(u"/dev/null"_s));
        QVERIFY(QFile::link(path(u"nowhere"_s), path(u"link"_s)));
        QVERIFY(!Files::exists(path(u"link"_s)));
        QVERIFY(!Files::exists(QString()));
    }

    void nameWithNul_isRefused()
    {
        const QString cut = path(u"a"_s + QChar(QChar::Null) + u"b"_s);
        QVERIFY(!Files::exists(cut));
        QVERIFY(Files::writeWhole(cut, "x"));
        QVERIFY(Files::append(cut, "x"));
        QVERIFY(Files::createDirectories(cut));
        QCOMPARE(names(), QStringList());
    }

    void createDirectories_throughAFile_says()
    {
        QVERIFY(!Files::writeWhole(path(u"file"_s), "x"));
        QCOMPARE(Files::createDirectories(path(u"file/a/b"_s)),
                 std::optional(u"Not a directory"_s));
    }

private:
    [[nodiscard]] QString path(const QString &name) const { return m_place->filePath(name); }
    [[nodiscard]] QStringList names() const
    {
        return QDir(m_place->path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }

    std::unique_ptr<QTemporaryDir> m_place;
};

QTEST_GUILESS_MAIN(SystemFilesTest)
#include "SystemFilesTest.moc"
