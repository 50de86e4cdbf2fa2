// SPDX-License-Identifier: MIT
#include "platform/generic/PosixFiles.h"

#include <QFile>
#include <QRandomGenerator>

#include <array>
#include <cerrno>
#include <chrono>
#include <climits>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>
#include <utility>
#include <vector>

// These functions return an errno value, or 0 for success.
namespace
{
using namespace std::chrono_literals;

// How often to try appending and creating while another program keeps creating and removing the
// file.
constexpr int mostRounds = 5;
constexpr auto patienceWithLease = 1s;
constexpr auto leaseCheck = 5ms;
// The limit for chains of symbolic links (path_resolution(7)).
constexpr int mostLinks = 40;

/// An open file that closes itself. Calling close() explicitly reveals errors.
class Descriptor final
{
public:
    explicit Descriptor(int number)
        : m_number(number)
    {
    }
    ~Descriptor()
    {
        if (m_number >= 0) {
            ::close(m_number);
        }
    }
    Q_DISABLE_COPY_MOVE(Descriptor)

    [[nodiscard]] bool isOpen() const { return m_number >= 0; }
    [[nodiscard]] int number() const { return m_number; }
    // On Linux, EINTR leaves the descriptor closed (close(2)), and the data is already synced.
    [[nodiscard]] bool close()
    {
        return ::close(std::exchange(m_number, -1)) == 0 || errno == EINTR;
    }

private:
    int m_number;
};

Files::Failure failure(int error)
{
    return error == 0 ? std::nullopt : std::optional(QString::fromLocal8Bit(std::strerror(error)));
}

Files::Failure checkName(const QString &path)
{
    if (path.contains(QChar::Null)) { // the system would end the name there
        return failure(EINVAL);
    }
    return PosixFiles().isFaithful(path)
        ? std::nullopt
        : std::optional(QStringLiteral("The folder's name is not valid UTF-8"));
}

/// Whether the error means that the file system does not support the operation.
bool isUnsupported(int error)
{
    return error == EINVAL || error == ENOSYS || error == EOPNOTSUPP;
}

int sync(const Descriptor &file)
{
    // If the file system cannot sync, the data has been written nonetheless and must not be written
    // again.
    return ::fsync(file.number()) == 0 || isUnsupported(errno) ? 0 : errno;
}

int writeSynced(Descriptor &file, const QByteArray &bytes)
{
    for (qsizetype done = 0; done < bytes.size();) {
        const ssize_t count = ::write(file.number(), bytes.constData() + done,
                                      static_cast<size_t>(bytes.size() - done));
        if (count < 0 && errno == EINTR) {
            continue;
        }
        if (count <= 0) {
            return count < 0 ? errno : EIO;
        }
        done += count;
    }
    if (const int error = sync(file)) {
        return error;
    }
    return file.close() ? 0 : errno;
}

/// Uses O_NONBLOCK, because opening a FIFO would otherwise wait for a reader. With that flag, a
/// file leased by a file server refuses to open until the lease is returned shortly afterwards
/// (fcntl(2), leases).
int openAtEnd(const QByteArray &path)
{
    const auto end = std::chrono::steady_clock::now() + patienceWithLease;
    for (;;) {
        const int number
            = ::open(path.constData(), O_WRONLY | O_APPEND | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
        if (number >= 0 || errno != EAGAIN || std::chrono::steady_clock::now() >= end) {
            return number;
        }
        std::this_thread::sleep_for(leaseCheck);
    }
}

/// ENOENT if the path no longer leads to a file, or leads to a different file.
int checkStillThere(const QByteArray &path, const Descriptor &file)
{
    struct stat opened {
    };
    struct stat there {
    };
    if (::fstat(file.number(), &opened) != 0) {
        return errno;
    }
    if (!S_ISREG(opened.st_mode)) {
        return EINVAL;
    }
    if (::stat(path.constData(), &there) != 0) {
        return errno;
    }
    return there.st_dev == opened.st_dev && there.st_ino == opened.st_ino ? 0 : ENOENT;
}

/// Sets @p hasBegunWriting before it writes: if a later step fails, the append must not be
/// repeated.
int append(const QByteArray &path, const QByteArray &bytes, bool &hasBegunWriting)
{
    Descriptor file(openAtEnd(path));
    if (!file.isOpen()) {
        return errno;
    }
    if (const int error = checkStillThere(path, file)) {
        return error;
    }
    hasBegunWriting = true;
    return writeSynced(file, bytes);
}

/// The folder part of @p path, including the slash; empty if there is none.
QByteArray folderOf(const QByteArray &path)
{
    return path.first(path.lastIndexOf('/') + 1);
}

/// Replaces @p path with the target if it is a symbolic link, so that a new file is created there.
int followLinks(QByteArray &path)
{
    for (int links = 0; links < mostLinks; ++links) {
        std::array<char, PATH_MAX> target{};
        const ssize_t length = ::readlink(path.constData(), target.data(), target.size());
        if (length < 0) {
            return errno == EINVAL || errno == ENOENT ? 0 : errno;
        }
        const QByteArray leadsTo(target.data(), length);
        path = leadsTo.startsWith('/') ? leadsTo : folderOf(path) + leadsTo;
    }
    return ELOOP;
}

int renameWithoutReplacing(const QByteArray &from, const QByteArray &to)
{
#ifdef RENAME_NOREPLACE
    return ::renameat2(AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), RENAME_NOREPLACE) == 0
        ? 0
        : errno;
#else
    Q_UNUSED(from);
    Q_UNUSED(to);
    return ENOSYS;
#endif
}

/// Renames @p temporary to @p path, but fails with EEXIST if something exists there. Uses
/// renameat2 where it works, else link and unlink, and on file systems without links a check
/// followed by a rename.
int renameToFreeName(const QByteArray &temporary, const QByteArray &path)
{
    const int refusal = renameWithoutReplacing(temporary, path);
    if (refusal == 0 || (refusal != EEXIST && !isUnsupported(refusal))) {
        return refusal;
    }
    // Tried even after EEXIST: a network file system may cache for a minute that the file does not
    // exist, and checks again once this fails.
    if (::link(temporary.constData(), path.constData()) == 0) {
        ::unlink(temporary.constData());
        return 0;
    }
    if (refusal == EEXIST) {
        return EEXIST;
    }
    const bool hasLinks = errno != EPERM && !isUnsupported(errno);
    if (hasLinks) {
        return errno;
    }
    // Neither is supported, as on FAT: checking just before the rename is the best option left.
    struct stat status {
    };
    if (::lstat(path.constData(), &status) == 0) {
        return EEXIST;
    }
    return errno == ENOENT && ::rename(temporary.constData(), path.constData()) == 0 ? 0 : errno;
}

/// Makes the new name survive a power failure. Errors are ignored: the file is already in place,
/// and file systems that cannot sync a directory have no alternative.
void syncDirectory(const QByteArray &folder)
{
    const Descriptor directory(::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (directory.isOpen()) {
        ::fsync(directory.number());
    }
}

/// Creates the missing folders of @p path, and makes their names survive a power failure too.
int createDirectories(const std::filesystem::path &path)
{
    std::vector<std::filesystem::path> missing;
    std::error_code error;
    for (auto each = path; !each.empty() && !exists(each, error); each = each.parent_path()) {
        missing.push_back(each);
    }
    create_directories(path, error);
    for (const auto &each : missing) {
        syncDirectory(QByteArray::fromStdString(each.parent_path()));
    }
    return error.value();
}

/// Fails with EEXIST if something exists at @p path.
int create(QByteArray path, const QByteArray &bytes)
{
    if (const int error = followLinks(path)) {
        return error;
    }
    // In the same folder, because a rename cannot cross file systems, and hidden until then.
    const QByteArray folder = folderOf(path);
    const QByteArray temporary = folder + '.' + path.sliced(folder.size()) + '.'
        + QByteArray::number(QRandomGenerator::system()->generate64(), 36);
    Descriptor file(::open(temporary.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
    if (!file.isOpen()) {
        return errno;
    }
    int error = writeSynced(file, bytes);
    if (error == 0) {
        error = renameToFreeName(temporary, path);
    }
    if (error != 0) {
        ::unlink(temporary.constData());
        return error;
    }
    syncDirectory(folder);
    return 0;
}
} // namespace

bool PosixFiles::isFaithful(const QString &path) const
{
    return path.isValidUtf16() && !path.contains(QChar::ReplacementCharacter);
}

Files::Failure PosixFiles::ensureDirectory(const QString &path)
{
    if (auto problem = checkName(path)) {
        return problem;
    }
    const QByteArray name = QFile::encodeName(path);
    struct stat status {
    };
    if (::stat(name.constData(), &status) == 0) {
        return std::nullopt;
    }
    if (errno != ENOENT) {
        return failure(errno);
    }
    return failure(createDirectories(name.toStdString()));
}

Files::Failure PosixFiles::appendOrCreate(const QString &path, const QByteArray &addition,
                                          const QByteArray &whole)
{
    if (auto problem = checkName(path)) {
        return problem;
    }
    const QByteArray name = QFile::encodeName(path);
    int error = 0;
    for (int round = 0; round < mostRounds; ++round) {
        bool hasBegunWriting = false;
        error = append(name, addition, hasBegunWriting);
        if (hasBegunWriting || error != ENOENT) {
            break;
        }
        error = create(name, whole);
        if (error != EEXIST) {
            break;
        }
    }
    return failure(error);
}
