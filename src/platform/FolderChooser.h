// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QtGlobal>

#include <functional>

class QWidget;

/// Lets the user choose a folder.
class FolderChooser
{
public:
    FolderChooser() = default;
    virtual ~FolderChooser() = default;
    Q_DISABLE_COPY_MOVE(FolderChooser)

    /// Opens the desktop's folder chooser over @p parent, with a default button labelled @p prompt,
    /// and returns immediately. @p chosen gets the absolute path of the folder; it is not called if
    /// the user cancels or once @p parent is destroyed. A chooser that is already open comes to the
    /// front instead.
    virtual void choose(QWidget &parent, const QString &prompt,
                        std::function<void(const QString &path)> chosen)
        = 0;
};
