// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class Compositor;
class PopUp;
class QPushButton;
struct Look;

/// Which sound is played when a prompt opens. Choosing is silent; Preview plays.
class SoundControl final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(SoundControl)

public:
    /// Offers @p names in their order; @p compositor must outlive the control.
    SoundControl(const QStringList &names, const Compositor &compositor);

    void showSound(const QString &name);

    /// The pop-up list and the symbol do not take their colours from the window by themselves.
    void setLook(const Look &look);

signals:
    void soundChosen(const QString &name);
    void previewRequested();

private:
    PopUp *m_names;
    QPushButton *m_preview;
};
