// SPDX-License-Identifier: MIT
#include "look/DrawnAlerts.h"

#include "look/AlertWindow.h"

#include <QEventLoop>
#include <QPointer>

void DrawnAlerts::warn(const QString &messageText, const QString &informativeText, QWidget *over)
{
    const QPointer alert = new AlertWindow(m_desktop, messageText, informativeText, over);
    QEventLoop loop;
    QObject::connect(alert, &AlertWindow::dismissed, &loop, &QEventLoop::quit);
    QObject::connect(alert, &QObject::destroyed, &loop, &QEventLoop::quit);
    m_desktop.windows->present(*alert);
    loop.exec();
    delete alert;
}
