// SPDX-License-Identifier: MIT
#include "platform/generic/FileDialogFolderChooser.h"

#include "platform/Windows.h"

void FileDialogFolderChooser::choose(QWidget &parent, const QString &prompt,
                                     std::function<void(const QString &path)> chosen)
{
    if (m_dialog) {
        m_dialog->raise();
        m_dialog->activateWindow();
        return;
    }
    m_dialog = new QFileDialog(&parent);
    m_dialog->setAttribute(Qt::WA_DeleteOnClose);
    // Keeps the look of the parent, even if that changes while the dialog is open.
    m_dialog->setAttribute(Qt::WA_WindowPropagation);
    m_dialog->setFileMode(QFileDialog::Directory);
    m_dialog->setOption(QFileDialog::ShowDirsOnly);
    m_dialog->setLabelText(QFileDialog::Accept, prompt);
    QObject::connect(m_dialog, &QFileDialog::fileSelected, &parent,
                     [chosen = std::move(chosen)](const QString &path) {
                         if (!path.isEmpty()) {
                             chosen(path);
                         }
                     });
    // Some window managers, such as Openbox, do not return focus to a window outside the taskbar.
    QObject::connect(m_dialog, &QDialog::finished, &parent, [this, &parent] {
        if (parent.isVisible()) {
            m_windows.present(parent);
        }
    });
    m_dialog->open();
}
