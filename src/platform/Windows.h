// SPDX-License-Identifier: MIT
#pragma once

#include <QMargins>
#include <QPoint>
#include <QRegion>
#include <QtGlobal>

class QWidget;

/// Window system features for our windows that the toolkit does not provide. Where the window
/// system has no such feature, as on Wayland without X11, the function does what the toolkit can do
/// and guarantees nothing.
class Windows
{
public:
    Windows() = default;
    virtual ~Windows() = default;
    Q_DISABLE_COPY_MOVE(Windows)

    /// Moves @p window to @p topLeft on the screen (logical pixels). If it is not shown yet, it
    /// opens there, even if its size changes in the meantime.
    virtual void place(QWidget &window, const QPoint &topLeft) = 0;
    /// Shows @p window, keeps it out of the taskbar and the pager, brings it to the front and gives
    /// it keyboard focus, even while the user is typing into another application.
    virtual void present(QWidget &window) = 0;
    /// Shows @p window in the same way, but without giving it keyboard focus.
    virtual void showInactive(QWidget &window) = 0;
    /// Hides @p window, so that the window system keeps nothing of it until it is shown again.
    virtual void withdraw(QWidget &window) = 0;
    /// Moves @p window with the pointer until the mouse button, which the user has just pressed, is
    /// released.
    virtual void startMove(QWidget &window) = 0;
    /// Declares @p shadow, in logical pixels at each edge, to be a shadow drawn by the window
    /// itself, which is not part of its frame and lets clicks through.
    virtual void setShadow(QWidget &window, const QMargins &shadow) = 0;
    /// Asks for a blurred backdrop behind @p region (logical pixels; empty for none). Whether it is
    /// blurred is up to Compositor::blursBehind.
    virtual void setBlurBehind(QWidget &window, const QRegion &region) = 0;
};
