// SPDX-License-Identifier: MIT
#pragma once

#include "platform/generic/PlainWindows.h"

/// Windows on X11, which Wayland desktops offer through XWayland. Without X11, windows have only
/// what the toolkit provides.
class X11Windows final : public PlainWindows
{
public:
    void place(QWidget &window, const QPoint &topLeft) override;
    void present(QWidget &window) override;
    void showInactive(QWidget &window) override;
    void withdraw(QWidget &window) override;
    void setShadow(QWidget &window, const QMargins &shadow) override;
    void setBlurBehind(QWidget &window, const QRegion &region) override;
};
