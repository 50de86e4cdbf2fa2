// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Compositor.h"
#include "platform/linux/x11/SelectionOwner.h"

#include <memory>

/// On X11, a compositor owns _NET_WM_CM_Sn (EWMH). Without X11, on Wayland, there always is one.
class X11Compositor final : public Compositor
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(X11Compositor)

public:
    X11Compositor() = default;

    [[nodiscard]] bool isRunning() const override;
    [[nodiscard]] bool blursBehind() const override;

private:
    /// Created on first use: nothing needs a compositor before a prompt opens.
    SelectionOwner &owner() const;

    mutable std::unique_ptr<SelectionOwner> m_owner;
};
