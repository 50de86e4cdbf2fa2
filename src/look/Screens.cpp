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

QPoint centredOnScreenWithPointer(const QSize &size)
{
    const QRect available = availableAreaWithPointer();
    const QSize free = (available.size() - size).expandedTo({0, 0});
    return available.topLeft() + QPoint(free.width(), free.height()) / 2;
}
