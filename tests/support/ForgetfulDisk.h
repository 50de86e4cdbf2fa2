// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>

struct fuse;

/// A file system in this process's memory that is as forgetful as POSIX permits: when the power
/// fails, it keeps a file's bytes only if the file was synced, and a name only if its directory
/// was.
class ForgetfulDisk final
{
public:
    /// What a failure of the power leaves of that which was not synced.
    enum class Kept { Nothing, Names, NamesAndHalfOfTheBytes };
    /// The bytes of each file by its path, which begins with "/".
    using Files = std::map<std::string, std::string>;
    /// Called before each operation that changes or syncs something. Returns the errno to fail it
    /// with, or 0 to let it proceed.
    using Interference = std::function<int(std::string_view operation)>;

    /// Mounts it on the empty directory @p place.
    explicit ForgetfulDisk(std::string place);
    ~ForgetfulDisk();
    Q_DISABLE_COPY_MOVE(ForgetfulDisk)

    /// False if no file system in user space can be mounted on this system.
    [[nodiscard]] bool isMounted() const { return m_fuse != nullptr; }
    void setInterference(Interference interference);
    /// What would be left if the power failed now. May be called by the interference.
    [[nodiscard]] Files afterPowerFailure(Kept kept) const;

    /// A file or a directory.
    struct Node;
    /// Of the operation that is being executed.
    static ForgetfulDisk &current();
    [[nodiscard]] int before(std::string_view operation);
    /// nullptr if there is none.
    [[nodiscard]] std::shared_ptr<Node> find(std::string_view path) const;
    /// By their descriptors. Keeps what is unlinked meanwhile.
    [[nodiscard]] auto &openFiles() { return m_openFiles; }

private:
    std::string m_place;
    std::shared_ptr<Node> m_root;
    std::map<uint64_t, std::shared_ptr<Node>> m_openFiles;
    fuse *m_fuse = nullptr;
    std::mutex m_mutex; // of m_interference
    Interference m_interference;
    std::thread m_thread;
};
