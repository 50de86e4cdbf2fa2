// SPDX-License-Identifier: MIT
#pragma once

#include "platform/FolderChooser.h"

#include <QFileDialog>
#include <QPointer>

class Windows;

/// The desktop's own dialogue where its platform theme brings one, else the toolkit's.
class FileDialogFolderChooser final : public FolderChooser
{
public:
    /// @p windows must outlive this.
    explicit FileDialogFolderChooser(Windows &windows)
        : m_windows(windows)
    {
    }

    void choose(QWidget &parent, const QString &prompt,
                std::function<void(const QString &path)> chosen) override;

private:
    Windows &m_windows;
    QPointer<QFileDialog> m_dialog;
};
