// SPDX-License-Identifier: MIT
#pragma once

#include "platform/generic/PlainWindows.h"

/// Windows on a compositor with layer-shell. Windows that stay on top become layer surfaces: above
/// everything else, full-screen windows included, out of the taskbar, and where we want them. The
/// others are ordinary windows.
class LayerShellWindows final : public PlainWindows
{
public:
    LayerShellWindows();

    void place(QWidget &window, const QPoint &topLeft) override;
    void present(QWidget &window) override;
    void startMove(QWidget &window) override;
    void setShadow(QWidget &window, const QMargins &shadow) override;
};
