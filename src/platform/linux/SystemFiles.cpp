// SPDX-License-Identifier: MIT
#include "platform/Files.h"

#include <QFile>
#include <QRandomGenerator>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace Files
{
namespace
{
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

Failure systemFailure(int error = errno)
{
    return QString::fromLocal8Bit(std::strerror(error));
}

/// A name with a NUL inside would silently be cut there.
Failure checkName(const QString &path)
{
    return path.contains(QChar::Null) ? systemFailure(EINVAL) : std::nullopt;
}

Failure writeSynced(Descriptor &file, const QByteArray &bytes)
{
    for (qsizetype done = 0; done < bytes.size();) {
        const ssize_t count = ::write(file.number(), bytes.constData() + done,
                                      static_cast<size_t>(bytes.size() - done));
        if (count < 0 && errno == EINTR) {
            continue;
        }
        if (count <= 0) {
            return systemFailure(count < 0 ? errno : EIO);
        }
        done += count;
    }
    if (::fsync(file.number()) != 0 || !file.close()) {
        return systemFailure();
    }
    return std::nullopt;
}

/// Beside its final place, since a rename does not cross file systems, and hidden until then.
QByteArray temporaryName(const QString &path)
{
    const qsizetype slash = path.lastIndexOf(u'/');
    const quint64 random = QRandomGenerator::system()->generate64();
    return QFile::encodeName(path.first(slash + 1) + u'.' + path.sliced(slash + 1) + u'.'
                             + QString::number(random, 36));
}

/// Makes the new name itself survive a power cut. A file system that cannot do that for a
/// directory has no better way, and the file is already in its place.
void syncDirectoryOf(const QString &path)
{
    const Descriptor directory(::open(QFile::encodeName(path.first(path.lastIndexOf(u'/') + 1)),
                                      O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (directory.isOpen()) {
        ::fsync(directory.number());
    }
}
} // namespace

bool exists(const QString &path)
{
    struct stat status {
    };
    return !checkName(path) && ::stat(QFile::encodeName(path), &status) == 0;
}

Failure createDirectories(const QString &path)
{
    if (auto failure = checkName(path)) {
        return failure;
    }
    std::error_code error;
    std::filesystem::create_directories(QFile::encodeName(path).toStdString(), error);
    return error ? systemFailure(error.value()) : std::nullopt;
}

Failure writeWhole(const QString &path, const QByteArray &bytes)
{
    if (auto failure = checkName(path)) {
        return failure;
    }
    const QByteArray temporary = temporaryName(path);
    Descriptor file(::open(temporary, O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
    if (!file.isOpen()) {
        return systemFailure();
    }
    auto failure = writeSynced(file, bytes);
    if (!failure && ::rename(temporary, QFile::encodeName(path)) != 0) {
        failure = systemFailure();
    }
    if (failure) {
        ::unlink(temporary);
        return failure;
    }
    syncDirectoryOf(path);
    return std::nullopt;
}

Failure append(const QString &path, const QByteArray &bytes)
{
    if (auto failure = checkName(path)) {
        return failure;
    }
    // O_NONBLOCK: opening a FIFO that nobody reads would wait for a reader.
    Descriptor file(
        ::open(QFile::encodeName(path), O_WRONLY | O_APPEND | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    struct stat status {
    };
    if (!file.isOpen() || ::fstat(file.number(), &status) != 0) {
        return systemFailure();
    }
    if (!S_ISREG(status.st_mode)) {
        return systemFailure(EINVAL);
    }
    return writeSynced(file, bytes);
}
} // namespace Files
