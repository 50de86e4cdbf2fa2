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

QPoint placeIn(const QRect &area, const QSize &size, qreal above)
{
    const QSize free = (area.size() - size).expandedTo({0, 0});
    return area.topLeft() + QPoint(free.width() / 2, static_cast<int>(free.height() * above));
}
