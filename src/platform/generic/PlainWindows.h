// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Windows.h"

/// Windows as the toolkit shows them.
class PlainWindows final : public Windows
{
public:
    void present(QWidget &window) override;
    void setShadow(QWidget &, const QMargins &) override { }
    void setBlurBehind(QWidget &, const QRegion &) override { }
};
