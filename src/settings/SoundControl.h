// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class Compositor;
class PopUp;
class QPushButton;
struct Look;

/// The sound that is played when a prompt opens. Choosing one is silent; Preview plays it.
class SoundControl final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(SoundControl)

public:
    /// Offers @p names in their order; @p compositor must outlive the control.
    SoundControl(const QStringList &names, const Compositor &compositor);

    void showSound(const QString &name);

    /// Needed because the pop-up's list and the symbol do not take their colours from the window.
    void setLook(const Look &look);

signals:
    void soundChosen(const QString &name);
    void previewRequested();

private:
    PopUp *m_names;
    QPushButton *m_preview;
};
