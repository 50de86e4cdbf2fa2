// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessible>
#include <QWidget>

class ControlStyle;
class Windows;

/// A window with the window manager's frame and the size of its content, which can only be moved
/// and closed (also with Control-W). While Alt is held, the controls' access keys are underlined.
class PanelWindow : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(PanelWindow)

protected:
    PanelWindow(const QString &title, QAccessible::Role role);
    ~PanelWindow() override;

    /// Must be called when the window has all its controls.
    void styleControls();
    /// Must be called once, when the content is complete. A change of scale repeats it. @p windows
    /// must outlive the window.
    void placeOnScreenWithPointer(Windows &windows);

    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;

private:
    void centre(Windows &windows);
    void showMnemonics(bool shows);

    ControlStyle *m_style;
};
