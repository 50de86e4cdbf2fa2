// SPDX-License-Identifier: MIT
#include "platform/linux/layershell/LayerShellWindows.h"

#include "platform/linux/layershell/LayerSurface.h"

#include <QCoreApplication>
#include <QWidget>
#include <QWindow>

namespace
{
bool floats(const QWidget &window)
{
    return window.windowFlags().testFlag(Qt::WindowStaysOnTopHint);
}
} // namespace

LayerShellWindows::LayerShellWindows()
{
    // An alert's native window must not make the widgets of the card below it native too.
    QCoreApplication::setAttribute(Qt::AA_DontCreateNativeWidgetSiblings);
}

void LayerShellWindows::place(QWidget &window, const QPoint &topLeft)
{
    if (floats(window)) {
        LayerSurface::of(window).place(topLeft);
    }
}

void LayerShellWindows::present(QWidget &window)
{
    // Compositors give the focus to new windows only.
    if (window.isVisible() && !window.isActiveWindow()) {
        window.hide();
    }
    if (floats(window)) {
        LayerSurface::of(window).takeKeyboard();
    }
    PlainWindows::present(window);
}

void LayerShellWindows::startMove(QWidget &window)
{
    if (floats(window)) {
        LayerSurface::of(window).startMove();
    } else {
        PlainWindows::startMove(window);
    }
}

void LayerShellWindows::setShadow(QWidget &window, const QMargins &shadow)
{
    // On Wayland, a mask decides what can be clicked, and cuts off nothing.
    window.windowHandle()->setMask(window.rect().marginsRemoved(shadow));
}
