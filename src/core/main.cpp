// SPDX-License-Identifier: MIT
#include "core/Catalogue.h"
#include "core/TovlaApp.h"
#include "platform/Process.h"

#include <QApplication>

int main(int argc, char *argv[])
{
    Process::prepare();
    QApplication::setApplicationName(QStringLiteral("tovla"));
    QApplication::setApplicationVersion(QStringLiteral(TOVLA_VERSION));
    QApplication::setDesktopFileName(QStringLiteral("org.tovla.Tovla"));
    const QApplication application(argc, argv);
    Process::endOnRequest();
    installCatalogue();
    const TovlaApp tovla;
    return QApplication::exec();
}
