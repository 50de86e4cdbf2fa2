// SPDX-License-Identifier: MIT
#include "support/ForgetfulDisk.h"

#define FUSE_USE_VERSION 31 // the interface that Debian 12 and later have in common
#include <QProcess>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <fuse.h>
#include <sys/mount.h>
#include <utility>

using namespace Qt::StringLiterals;

struct ForgetfulDisk::Node {
    using Names = std::map<std::string, std::shared_ptr<Node>, std::less<>>;

    explicit Node(mode_t nodeMode)
        : mode(nodeMode)
    {
    }

    mode_t mode;
    std::string bytes;
    std::string syncedBytes;
    Names names;
    Names syncedNames;
};

namespace
{
using Node = ForgetfulDisk::Node;

/// The directory's path, and the name in it.
std::pair<std::string_view, std::string_view> split(std::string_view path)
{
    const size_t slash = path.rfind('/');
    if (slash == std::string_view::npos) {
        return {};
    }
    return {path.substr(0, slash), path.substr(slash + 1)};
}

std::shared_ptr<Node> find(std::string_view path)
{
    return ForgetfulDisk::current().find(path);
}

Node::Names &siblings(std::string_view path)
{
    return find(split(path).first)->names;
}

std::string nameIn(std::string_view path)
{
    return std::string(split(path).second);
}

Node &opened(const fuse_file_info *file)
{
    return *ForgetfulDisk::current().openFiles().at(file->fh);
}

// The operations of fuse.h. They return a negative errno, or 0 or a number of bytes.

void *init(fuse_conn_info *, fuse_config *config)
{
    config->hard_remove = 1;
    config->entry_timeout = config->attr_timeout = 0;
    return fuse_get_context()->private_data;
}

int getattr(const char *path, struct stat *status, fuse_file_info *)
{
    const auto node = find(path);
    if (!node) {
        return -ENOENT;
    }
    *status = {};
    status->st_mode = node->mode;
    status->st_nlink = 1;
    status->st_size = static_cast<off_t>(node->bytes.size());
    return 0;
}

int readdir(const char *path, void *buffer, fuse_fill_dir_t fill, off_t, fuse_file_info *,
            fuse_readdir_flags)
{
    for (const auto &[name, node] : find(path)->names) {
        fill(buffer, name.c_str(), nullptr, 0, {});
    }
    return 0;
}

int add(const char *path, const char *operation, const std::shared_ptr<Node> &node)
{
    if (const int error = ForgetfulDisk::current().before(operation)) {
        return -error;
    }
    siblings(path)[nameIn(path)] = node;
    return 0;
}

int mkdir(const char *path, mode_t mode)
{
    return add(path, "mkdir", std::make_shared<Node>(S_IFDIR | mode));
}

int open(const char *path, fuse_file_info *file)
{
    static uint64_t last = 0;
    file->fh = ++last;
    ForgetfulDisk::current().openFiles()[file->fh] = find(path);
    return 0;
}

int create(const char *path, mode_t mode, fuse_file_info *file)
{
    const int error = add(path, "create", std::make_shared<Node>(mode));
    return error == 0 ? open(path, file) : error;
}

int release(const char *, fuse_file_info *file)
{
    ForgetfulDisk::current().openFiles().erase(file->fh);
    return 0;
}

int read(const char *, char *buffer, size_t size, off_t offset, fuse_file_info *file)
{
    const std::string &bytes = opened(file).bytes;
    const size_t begin = std::min(bytes.size(), static_cast<size_t>(offset));
    return static_cast<int>(bytes.copy(buffer, size, begin));
}

int write(const char *, const char *buffer, size_t size, off_t offset, fuse_file_info *file)
{
    if (const int error = ForgetfulDisk::current().before("write")) {
        return -error;
    }
    std::string &bytes = opened(file).bytes;
    const auto begin = static_cast<size_t>(offset);
    bytes.resize(std::max(bytes.size(), begin + size));
    bytes.replace(begin, size, buffer, size);
    return static_cast<int>(size);
}

int truncate(const char *path, off_t size, fuse_file_info *)
{
    if (const int error = ForgetfulDisk::current().before("truncate")) {
        return -error;
    }
    find(path)->bytes.resize(static_cast<size_t>(size));
    return 0;
}

int fsync(const char *, int, fuse_file_info *file)
{
    if (const int error = ForgetfulDisk::current().before("fsync")) {
        return -error;
    }
    opened(file).syncedBytes = opened(file).bytes;
    return 0;
}

int fsyncdir(const char *path, int, fuse_file_info *)
{
    if (const int error = ForgetfulDisk::current().before("fsyncdir")) {
        return -error;
    }
    const auto node = find(path);
    node->syncedNames = node->names;
    return 0;
}

int unlink(const char *path)
{
    if (const int error = ForgetfulDisk::current().before("unlink")) {
        return -error;
    }
    siblings(path).erase(nameIn(path));
    return 0;
}

int rename(const char *from, const char *to, unsigned flags)
{
    if ((flags & RENAME_NOREPLACE) != 0 && find(to)) {
        return -EEXIST;
    }
    if (const int error = add(to, "rename", find(from))) {
        return error;
    }
    siblings(from).erase(nameIn(from));
    return 0;
}

std::string bytesOf(const Node &file, ForgetfulDisk::Kept kept)
{
    const bool isHalfKept = kept == ForgetfulDisk::Kept::NamesAndHalfOfTheBytes;
    if (!isHalfKept || file.bytes.size() < file.syncedBytes.size()) {
        return file.syncedBytes;
    }
    return file.bytes.substr(0, (file.syncedBytes.size() + file.bytes.size()) / 2);
}

void collect(const Node &directory, const std::string &path, ForgetfulDisk::Kept kept,
             ForgetfulDisk::Files &files)
{
    const bool areNamesKept = kept != ForgetfulDisk::Kept::Nothing;
    for (const auto &[name, node] : areNamesKept ? directory.names : directory.syncedNames) {
        std::string full = path;
        full.append("/").append(name);
        if (S_ISDIR(node->mode)) {
            collect(*node, full, kept, files);
        } else {
            files[full] = bytesOf(*node, kept);
        }
    }
}

fuse_operations operations()
{
    fuse_operations all{};
    all.init = init;
    all.getattr = getattr;
    all.readdir = readdir;
    all.mkdir = mkdir;
    all.open = open;
    all.create = create;
    all.release = release;
    all.read = read;
    all.write = write;
    all.truncate = truncate;
    all.fsync = fsync;
    all.fsyncdir = fsyncdir;
    all.unlink = unlink;
    all.rename = rename;
    return all;
}
} // namespace

ForgetfulDisk::ForgetfulDisk(std::string place)
    : m_place(std::move(place))
    , m_root(std::make_shared<Node>(S_IFDIR | 0755))
{
    std::string name = "ForgetfulDisk";
    std::array arguments{name.data()};
    fuse_args parsed = FUSE_ARGS_INIT(static_cast<int>(arguments.size()), arguments.data());
    const fuse_operations all = operations();
    m_fuse = fuse_new(&parsed, &all, sizeof all, this);
    fuse_opt_free_args(&parsed);
    if (m_fuse != nullptr && fuse_mount(m_fuse, m_place.c_str()) != 0) {
        fuse_destroy(std::exchange(m_fuse, nullptr));
    }
    if (m_fuse != nullptr) {
        m_thread = std::thread(fuse_loop, m_fuse);
    }
}

ForgetfulDisk::~ForgetfulDisk()
{
    if (m_fuse != nullptr) {
        // Not fuse_unmount() first, which closes the device that the thread still reads.
        if (::umount2(m_place.c_str(), MNT_DETACH) != 0) { // for root alone
            QProcess::execute(u"fusermount3"_s, {u"-uz"_s, QString::fromStdString(m_place)});
        }
        m_thread.join();
        fuse_unmount(m_fuse);
        fuse_destroy(m_fuse);
    }
}

ForgetfulDisk &ForgetfulDisk::current()
{
    return *static_cast<ForgetfulDisk *>(fuse_get_context()->private_data);
}

void ForgetfulDisk::setInterference(Interference interference)
{
    const std::lock_guard lock(m_mutex);
    m_interference = std::move(interference);
}

int ForgetfulDisk::before(std::string_view operation)
{
    const std::lock_guard lock(m_mutex);
    return m_interference ? m_interference(operation) : 0;
}

std::shared_ptr<ForgetfulDisk::Node> ForgetfulDisk::find(std::string_view path) const
{
    const auto [folder, name] = split(path);
    if (name.empty()) {
        return m_root;
    }
    const auto directory = find(folder);
    if (!directory) {
        return nullptr;
    }
    const auto found = directory->names.find(name);
    return found == directory->names.end() ? nullptr : found->second;
}

ForgetfulDisk::Files ForgetfulDisk::afterPowerFailure(Kept kept) const
{
    Files files;
    collect(*m_root, "", kept, files);
    return files;
}
