// SPDX-License-Identifier: MIT
#pragma once

#include "look/Look.h"

#include <QWidget>

class AppState;
class FolderControl;
class FrequencyControl;
class SoundControl;
class ThemeControl;
class QVBoxLayout;

/// The content of the settings window. Changes take effect immediately.
class SettingsView final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(SettingsView)

public:
    static constexpr int width = 440;

    /// @p state must outlive the view.
    SettingsView(AppState &state, QWidget *parent);

    void setLook(const Look &look);

private:
    void addRow(const QString &icon, const Tint &tint, const QString &label, const QString &detail,
                QWidget *control);
    void connectControls();
    void refresh();
    void pickFolder();
    void folderChosen(const QString &path);

    AppState &m_state;
    QVBoxLayout *m_rows;
    FolderControl *m_folder;
    FrequencyControl *m_frequency;
    ThemeControl *m_theme;
    SoundControl *m_sound;
};
