// SPDX-License-Identifier: MIT
#pragma once

#include "platform/generic/FileDialogFolderChooser.h"

#include <QPointer>

class PortalRequest;

/// The desktop's own folder chooser, opened through the portal; without a portal, the toolkit's.
class PortalFolderChooser final : public FileDialogFolderChooser
{
public:
    using FileDialogFolderChooser::FileDialogFolderChooser;

    void choose(QWidget &parent, const QString &prompt,
                std::function<void(const QString &path)> chosen) override;

private:
    QPointer<PortalRequest> m_request;
};
