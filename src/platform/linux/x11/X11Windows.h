// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Windows.h"

/// Windows on X11, which XWayland offers on Wayland too. On a window system without X11 windows
/// are shown as the toolkit shows them.
class X11Windows final : public Windows
{
public:
    void present(QWidget &window) override;
    void setShadow(QWidget &window, const QMargins &shadow) override;
    void setBlurBehind(QWidget &window, const QRegion &region) override;
};
