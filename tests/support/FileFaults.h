// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <functional>
#include <string>
#include <string_view>

/// One call of this process on a file below the watched folder, just before it is carried out.
struct FileCall {
    /// Of the C library: "open", "stat", "renameat2".
    std::string_view name;
    /// What the call names; for a call on a descriptor, the file that this leads to.
    std::string path;
};

/// Stands between this process and its calls on the files of one folder: a call may be failed, and
/// whatever another program might do in that moment may be done. One at a time; what it does to
/// files itself is not reported.
class FileFaults final
{
public:
    /// Returns the errno to fail the call with, or 0 to let it through.
    using Interference = std::function<int(const FileCall &)>;

    FileFaults(std::string folder, Interference interference);
    ~FileFaults();
    Q_DISABLE_COPY_MOVE(FileFaults)

    /// For the calls themselves: the errno to fail with, or 0.
    [[nodiscard]] static int before(std::string_view name, const char *path);
    [[nodiscard]] static int before(std::string_view name, int descriptor);

private:
    std::string m_folder;
    Interference m_interference;
    bool m_isBusy = false;
};
