// SPDX-License-Identifier: MIT
#include "platform/generic/PlainWindows.h"

#include <QWidget>

void PlainWindows::present(QWidget &window)
{
    window.show();
    window.raise();
    window.activateWindow();
}
