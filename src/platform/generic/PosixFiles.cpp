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

// Steps return the errno that they failed with, or 0.
namespace
{
using namespace std::chrono_literals;

// Of appending and making in turn, while another program makes and removes the file.
constexpr int mostRounds = 5;
constexpr auto patienceWithLease = 1s;
constexpr auto leaseCheck = 5ms;
// Of links that lead to links (path_resolution(7)).
constexpr int mostLinks = 40;

/// An open file that is closed on every way out; closing it by hand shows the error of closing.
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
    // After EINTR the descriptor is closed on Linux, and the bytes were synced before (close(2)).
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
    if (path.contains(QChar::Null)) { // the system would take it for the end
        return failure(EINVAL);
    }
    return PosixFiles().isFaithful(path)
        ? std::nullopt
        : std::optional(QStringLiteral("Its name is not valid UTF-8"));
}

/// What a file system answers that does not have the operation at all.
bool isUnsupported(int error)
{
    return error == EINVAL || error == ENOSYS || error == EOPNOTSUPP;
}

int sync(const Descriptor &file)
{
    // The bytes are written; a disk that cannot be told to keep them is no reason to write twice.
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

/// O_NONBLOCK, since opening a FIFO that nobody reads would wait for a reader. A file that a file
/// server lends to somebody then refuses at once, though it is given back in a moment (fcntl(2),
/// leases).
int openAtEnd(const QByteArray &path)
{
    const auto end = std::chrono::steady_clock::now() + patienceWithLease;
    for (;;) {
        const int number = ::open(path, O_WRONLY | O_APPEND | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
        if (number >= 0 || errno != EAGAIN || std::chrono::steady_clock::now() >= end) {
            return number;
        }
        std::this_thread::sleep_for(leaseCheck);
    }
}

/// ENOENT when the path leads to nothing, or no longer to the file that it led to.
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
    if (::stat(path, &there) != 0) {
        return errno;
    }
    return there.st_dev == opened.st_dev && there.st_ino == opened.st_ino ? 0 : ENOENT;
}

/// What was already written when a later step fails is never retried: @p isWritten tells.
int append(const QByteArray &path, const QByteArray &bytes, bool &isWritten)
{
    Descriptor file(openAtEnd(path));
    if (!file.isOpen()) {
        return errno;
    }
    if (const int error = checkStillThere(path, file)) {
        return error;
    }
    isWritten = true;
    return writeSynced(file, bytes);
}

/// Where a new file at @p path is to be made: at the end of a link that leads nowhere.
int followLinks(QByteArray &path)
{
    for (int links = 0; links < mostLinks; ++links) {
        std::array<char, PATH_MAX> target{};
        const ssize_t length = ::readlink(path, target.data(), target.size());
        if (length < 0) {
            return errno == EINVAL || errno == ENOENT ? 0 : errno;
        }
        const QByteArray leadsTo(target.data(), length);
        const QByteArray folder = path.first(path.lastIndexOf('/') + 1);
        path = leadsTo.startsWith('/') ? leadsTo : folder + leadsTo;
    }
    return ELOOP;
}

int renameWithoutReplacing(const QByteArray &from, const QByteArray &to)
{
#ifdef RENAME_NOREPLACE
    return ::renameat2(AT_FDCWD, from, AT_FDCWD, to, RENAME_NOREPLACE) == 0 ? 0 : errno;
#else
    Q_UNUSED(from);
    Q_UNUSED(to);
    return ENOSYS;
#endif
}

/// EEXIST when something is there.
int renameToNothing(const QByteArray &temporary, const QByteArray &path)
{
    const int refusal = renameWithoutReplacing(temporary, path);
    if (refusal == 0 || (refusal != EEXIST && !isUnsupported(refusal))) {
        return refusal;
    }
    // Asked even when something is there: a network file system may remember for a minute that
    // nothing is, and looks anew once this fails.
    if (::link(temporary, path) == 0) {
        ::unlink(temporary);
        return 0;
    }
    const bool hasLinks = errno != EPERM && !isUnsupported(errno);
    if (refusal == EEXIST || hasLinks) {
        return refusal == EEXIST ? refusal : errno;
    }
    // Neither is known, as on FAT: nothing is better than a last look.
    struct stat status {
    };
    if (::lstat(path, &status) == 0) {
        return EEXIST;
    }
    return errno == ENOENT && ::rename(temporary, path) == 0 ? 0 : errno;
}

/// Makes the new name itself survive a power cut. A file system that cannot do that for a
/// directory has no better way, and the file is already in its place.
void syncDirectory(const QByteArray &folder)
{
    const Descriptor directory(::open(folder, O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (directory.isOpen()) {
        ::fsync(directory.number());
    }
}

/// EEXIST when something is there.
int create(QByteArray path, const QByteArray &bytes)
{
    if (const int error = followLinks(path)) {
        return error;
    }
    // Beside its final place, since a rename does not cross file systems, and hidden until then.
    const QByteArray folder = path.first(path.lastIndexOf('/') + 1);
    const QByteArray temporary = folder + '.' + path.sliced(folder.size()) + '.'
        + QByteArray::number(QRandomGenerator::system()->generate64(), 36);
    Descriptor file(::open(temporary, O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
    if (!file.isOpen()) {
        return errno;
    }
    int error = writeSynced(file, bytes);
    if (error == 0) {
        error = renameToNothing(temporary, path);
    }
    if (error != 0) {
        ::unlink(temporary);
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
    if (::stat(name, &status) == 0) {
        return std::nullopt;
    }
    if (errno != ENOENT) {
        return failure(errno);
    }
    std::error_code error;
    std::filesystem::create_directories(name.toStdString(), error);
    return failure(error.value());
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
        bool isWritten = false;
        error = append(name, addition, isWritten);
        if (isWritten || error != ENOENT) {
            break;
        }
        error = create(name, whole);
        if (error != EEXIST) {
            break;
        }
    }
    return failure(error);
}
