// SPDX-License-Identifier: MIT
#pragma once

#include <QMargins>
#include <QRegion>
#include <QtGlobal>

class QWidget;

/// What a window of ours asks of the window system beyond what the toolkit asks for it.
class Windows
{
public:
    Windows() = default;
    virtual ~Windows() = default;
    Q_DISABLE_COPY_MOVE(Windows)

    /// Shows @p window, keeps it out of the taskbar and the pager, brings it to the front and gives
    /// it the keyboard, even when the user is typing into another application.
    virtual void present(QWidget &window) = 0;
    /// Announces that @p shadow, in logical pixels at each edge, is drawn by the window itself and
    /// is neither part of its frame nor of what can be clicked.
    virtual void setShadow(QWidget &window, const QMargins &shadow) = 0;
    /// Asks for a blurred backdrop behind @p region (logical pixels; empty for none). What comes of
    /// it is told by Compositor::blursBehind.
    virtual void setBlurBehind(QWidget &window, const QRegion &region) = 0;
};
