// SPDX-License-Identifier: MIT
#include "app/Catalogue.h"
#include "app/TovlaApp.h"
#include "platform/Desktop.h"

#include <QApplication>

namespace
{
int run(int argc, char **argv)
{
    QApplication::setApplicationName(QStringLiteral("tovla"));
    QApplication::setApplicationVersion(QStringLiteral(TOVLA_VERSION));
    QApplication::setDesktopFileName(QStringLiteral("org.tovla.Tovla"));
    const QApplication application(argc, argv);
    installCatalogue();
    const TovlaApp tovla;
    return QApplication::exec();
}
} // namespace

int main(int argc, char *argv[])
{
    Desktop::prepare();
    return Desktop::end(run(argc, argv), argv);
}
