// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class AppState;
class PopUp;
class QPushButton;
struct Look;

/// Which sound is played when a prompt opens. Choosing is silent; Preview plays.
class SoundControl final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(SoundControl)

public:
    /// @p state must outlive the control.
    explicit SoundControl(AppState &state);

    /// The pop-up list and the symbol do not take their colours from the window by themselves.
    void setLook(const Look &look);

private:
    void refresh();

    AppState &m_state;
    PopUp *m_names;
    QPushButton *m_preview;
};
