// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Windows.h"

/// Windows with only what the toolkit provides.
class PlainWindows : public Windows
{
public:
    void place(QWidget &window, const QPoint &topLeft) override;
    void present(QWidget &window) override;
    void showInactive(QWidget &window) override;
    void withdraw(QWidget &window) override;
    void startMove(QWidget &window) override;
    void setShadow(QWidget &, const QMargins &) override { }
    void setBlurBehind(QWidget &, const QRegion &) override { }
};
