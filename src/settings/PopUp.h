// SPDX-License-Identifier: MIT
#pragma once

#include <QComboBox>

class Compositor;

/// A pop-up menu of names. To a screen reader it has the name that it is given; the toolkit would
/// tell its current text as its name.
class PopUp final : public QComboBox
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(PopUp)

public:
    /// @p compositor must outlive the pop-up.
    PopUp(const QString &accessibleName, const Compositor &compositor, QWidget *parent);

    /// The open list is a window of its own and takes no palette from ours.
    void setListPalette(const QPalette &palette);
    void showPopup() override;

private:
    void tellChoice(int index);
    void tellFocus(int index);

    const Compositor &m_compositor;
};
