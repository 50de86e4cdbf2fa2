// SPDX-License-Identifier: MIT
#include "look/Screens.h"

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>

QRect availableAreaWithPointer()
{
    const QScreen *screen = QGuiApplication::screenAt(QCursor::pos());
    return (screen ? screen : QGuiApplication::primaryScreen())->availableGeometry();
}
