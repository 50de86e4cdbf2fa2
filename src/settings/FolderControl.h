// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class ElidedLabel;
class QLabel;
class QPushButton;

/// Shows the journal folder and lets the user choose another.
class FolderControl final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(FolderControl)

public:
    FolderControl();

    /// Shows @p path, or "No folder selected" if it is empty.
    void showFolder(const QString &path);

signals:
    void chooseRequested();

private:
    [[nodiscard]] QLayout *createTexts();

    QLabel *m_none;
    ElidedLabel *m_name;
    ElidedLabel *m_path;
    QPushButton *m_button;
};
