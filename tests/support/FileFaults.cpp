// SPDX-License-Identifier: MIT
#include "support/FileFaults.h"

#include <array>
#include <cerrno>
#include <climits>
#include <cstdarg>
#include <cstdio>
#include <dlfcn.h>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace
{
FileFaults *current = nullptr;
} // namespace

FileFaults::FileFaults(std::string folder, Interference interference)
    : m_folder(std::move(folder))
    , m_interference(std::move(interference))
{
    current = this;
}

FileFaults::~FileFaults()
{
    current = nullptr;
}

int FileFaults::before(std::string_view name, const char *path, int openFlags)
{
    if (current == nullptr || current->m_isBusy
        || !std::string_view(path).starts_with(current->m_folder)) {
        return 0;
    }
    current->m_isBusy = true;
    const int error = current->m_interference({name, path, openFlags});
    if (current != nullptr) {
        current->m_isBusy = false;
    }
    return error;
}

int FileFaults::before(std::string_view name, int descriptor)
{
    if (current == nullptr || current->m_isBusy) {
        return 0;
    }
    std::array<char, PATH_MAX> target{};
    const std::string link = "/proc/self/fd/" + std::to_string(descriptor);
    current->m_isBusy = true;
    const ssize_t length = ::readlink(link.c_str(), target.data(), target.size() - 1);
    current->m_isBusy = false;
    return length > 0 ? before(name, target.data()) : 0;
}

// Definitions in the program take precedence over those in the C library, for all loaded libraries
// (ld.so(8), symbol lookup order).
namespace
{
template <typename Function>
Function *next(const char *name)
{
    return reinterpret_cast<Function *>(dlsym(RTLD_NEXT, name));
}

template <typename Function, typename File, typename... Arguments>
int carryOut(const char *name, File watched, Arguments... arguments)
{
    if (const int error = FileFaults::before(name, watched)) {
        errno = error;
        return -1;
    }
    return next<Function>(name)(arguments...);
}
} // namespace

extern "C" {
int open(const char *path, int flags, ...)
{
    va_list rest;
    va_start(rest, flags);
    // NOLINTNEXTLINE(clang-analyzer-valist.Uninitialized): va_start initialises it
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(rest, mode_t) : 0;
    va_end(rest);
    if (const int error = FileFaults::before("open", path, flags)) {
        errno = error;
        return -1;
    }
    return next<int(const char *, int, ...)>("open")(path, flags, mode);
}

int stat(const char *path, struct stat *status)
{
    return carryOut<int(const char *, struct stat *)>("stat", path, path, status);
}

int lstat(const char *path, struct stat *status)
{
    return carryOut<int(const char *, struct stat *)>("lstat", path, path, status);
}

int fstat(int descriptor, struct stat *status)
{
    return carryOut<int(int, struct stat *)>("fstat", descriptor, descriptor, status);
}

int mkdir(const char *path, mode_t mode)
{
    return carryOut<int(const char *, mode_t)>("mkdir", path, path, mode);
}

ssize_t write(int descriptor, const void *bytes, size_t count)
{
    if (const int error = FileFaults::before("write", descriptor)) {
        errno = error;
        return -1;
    }
    return next<ssize_t(int, const void *, size_t)>("write")(descriptor, bytes, count);
}

int fsync(int descriptor)
{
    return carryOut<int(int)>("fsync", descriptor, descriptor);
}

int close(int descriptor)
{
    if (const int error = FileFaults::before("close", descriptor)) {
        next<int(int)>("close")(descriptor);
        errno = error;
        return -1;
    }
    return next<int(int)>("close")(descriptor);
}

int rename(const char *from, const char *to)
{
    return carryOut<int(const char *, const char *)>("rename", to, from, to);
}

int renameat2(int fromDir, const char *from, int toDir, const char *to, unsigned flags)
{
    return carryOut<int(int, const char *, int, const char *, unsigned)>("renameat2", to, fromDir,
                                                                         from, toDir, to, flags);
}

int link(const char *from, const char *to)
{
    return carryOut<int(const char *, const char *)>("link", to, from, to);
}

int unlink(const char *path)
{
    return carryOut<int(const char *)>("unlink", path, path);
}
}
