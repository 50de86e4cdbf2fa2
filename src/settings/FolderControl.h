// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class AppState;
class ElidedLabel;
class QLabel;

/// Shows the journal folder and lets the user choose another.
class FolderControl final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(FolderControl)

public:
    /// @p state must outlive the control.
    explicit FolderControl(AppState &state);

private:
    [[nodiscard]] QLayout *createTexts();
    void refresh();
    void pickFolder();
    void take(const QString &path);

    AppState &m_state;
    QLabel *m_none;
    ElidedLabel *m_name;
    ElidedLabel *m_path;
};
