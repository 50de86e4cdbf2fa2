// SPDX-License-Identifier: MIT
#pragma once

#include <QComboBox>

class Compositor;

/// A pop-up menu of names. Screen readers get the given name; the toolkit would report the current
/// text instead.
class PopUp final : public QComboBox
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(PopUp)

public:
    /// @p compositor must outlive the pop-up.
    PopUp(const QString &accessibleName, const Compositor &compositor, QWidget *parent);

    /// Needed because the open list is a window of its own and does not inherit our palette.
    void setListPalette(const QPalette &palette);
    void showPopup() override;

private:
    void reportChoice(int index);
    void reportFocus(int index);

    const Compositor &m_compositor;
};
