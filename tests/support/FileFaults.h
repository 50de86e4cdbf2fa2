// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <functional>
#include <string>
#include <string_view>

/// A call by this process on a file in the watched folder, just before it is executed.
struct FileCall {
    /// The name of the C library function: "open", "stat", "renameat2".
    std::string_view name;
    /// The path in the call or, for a call on a descriptor, the path of its file.
    std::string path;
    /// Those of "open" (open(2)); else 0.
    int openFlags = 0;
};

/// Intercepts this process's calls on the files in a folder. The callback can make a call fail, or
/// do what another program might do at that moment. Only one instance can exist at a time; its
/// callback's own file operations are not reported.
class FileFaults final
{
public:
    /// Returns the errno to fail the call with, or 0 to let it proceed.
    using Interference = std::function<int(const FileCall &)>;

    FileFaults(std::string folder, Interference interference);
    ~FileFaults();
    Q_DISABLE_COPY_MOVE(FileFaults)

    /// Called by the intercepted functions. Returns the errno to fail with, or 0.
    [[nodiscard]] static int before(std::string_view name, const char *path, int openFlags = 0);
    [[nodiscard]] static int before(std::string_view name, int descriptor);

private:
    std::string m_folder;
    Interference m_interference;
    bool m_isBusy = false;
};
