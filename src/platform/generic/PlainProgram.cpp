// SPDX-License-Identifier: MIT
#include "platform/generic/PlainProgram.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QProcess>

QString PlainProgram::path() const
{
    return QCoreApplication::applicationFilePath();
}

bool PlainProgram::canRestart() const
{
    return QFileInfo(path()).isExecutable();
}

void PlainProgram::restart()
{
    QObject::connect(qApp, &QCoreApplication::aboutToQuit, qApp,
                     [path = path()] { QProcess::startDetached(path, {}); });
    QCoreApplication::quit();
}
