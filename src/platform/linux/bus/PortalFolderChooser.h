// SPDX-License-Identifier: MIT
#pragma once

#include "platform/generic/FileDialogFolderChooser.h"

#include <QPointer>

class PortalRequest;

/// The desktop's own chooser, by way of the portal; the toolkit's where there is no portal.
class PortalFolderChooser final : public FileDialogFolderChooser
{
public:
    using FileDialogFolderChooser::FileDialogFolderChooser;

    void choose(QWidget &parent, const QString &prompt,
                std::function<void(const QString &path)> chosen) override;

private:
    QPointer<PortalRequest> m_request;
};
