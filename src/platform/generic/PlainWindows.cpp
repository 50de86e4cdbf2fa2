// SPDX-License-Identifier: MIT
#include "platform/generic/PlainWindows.h"

#include "platform/generic/PointerFollower.h"

#include <QWidget>
#include <QWindow>

void PlainWindows::place(QWidget &window, const QPoint &topLeft)
{
    window.move(topLeft);
}

void PlainWindows::present(QWidget &window)
{
    window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
    window.show();
    window.raise();
    window.activateWindow();
}

void PlainWindows::showInactive(QWidget &window)
{
    window.setAttribute(Qt::WA_ShowWithoutActivating);
    window.show();
    window.setAttribute(Qt::WA_ShowWithoutActivating, false);
}

void PlainWindows::withdraw(QWidget &window)
{
    window.hide();
}

void PlainWindows::startMove(QWidget &window)
{
    // Refused to fingers by the toolkit on X11, except with two window managers.
    if (window.windowHandle() != nullptr && !window.windowHandle()->startSystemMove()) {
        new PointerFollower(window);
    }
}
