// SPDX-License-Identifier: MIT
#pragma once

#include "platform/FolderChooser.h"

#include <QFileDialog>
#include <QPointer>

class Windows;

/// The desktop's own dialog if its platform theme provides one, else the toolkit's.
class FileDialogFolderChooser : public FolderChooser
{
public:
    /// @p windows must outlive this object.
    explicit FileDialogFolderChooser(Windows &windows)
        : m_windows(windows)
    {
    }

    void choose(QWidget &parent, const QString &prompt,
                std::function<void(const QString &path)> chosen) override;

protected:
    [[nodiscard]] Windows &windows() const { return m_windows; }

private:
    Windows &m_windows;
    QPointer<QFileDialog> m_dialog;
};
