// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessible>
#include <QWidget>

class ControlStyle;
class Windows;

/// A window with the window manager's frame, as large as its content: it can be closed, with
/// Control-W too, and that is all. The letters that Alt presses a control with are underlined while
/// Alt is held.
class PanelWindow : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(PanelWindow)

protected:
    PanelWindow(const QString &title, QAccessible::Role role);
    ~PanelWindow() override;

    /// Draws the controls that the window has by now in our look.
    void styleControls();
    /// Must be called once, when the content is complete. Does so again when the scale changes.
    /// @p windows must outlive the window.
    void placeOnScreenWithPointer(Windows &windows);

    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;

private:
    void centre(Windows &windows);
    void showMnemonics(bool shows);

    ControlStyle *m_style;
};
