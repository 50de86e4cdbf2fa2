// SPDX-License-Identifier: MIT
#pragma once

#include "look/Look.h"

#include <QWidget>

class AppState;
class SoundControl;
class QVBoxLayout;

/// The content of the settings window. What is changed in it takes effect at once.
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

    QVBoxLayout *m_rows;
    SoundControl *m_sound;
};
