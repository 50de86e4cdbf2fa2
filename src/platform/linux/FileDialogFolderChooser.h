// SPDX-License-Identifier: MIT
#pragma once

#include "platform/FolderChooser.h"

#include <QFileDialog>
#include <QPointer>

/// The desktop's own dialogue where its platform theme brings one, else the toolkit's.
class FileDialogFolderChooser final : public FolderChooser
{
public:
    void choose(QWidget &parent, const QString &prompt,
                std::function<void(const QString &path)> chosen) override;

private:
    QPointer<QFileDialog> m_dialog;
};
