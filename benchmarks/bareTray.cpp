// SPDX-License-Identifier: MIT
// A minimal Qt program with a tray icon and a menu of five items.
#include <QApplication>
#include <QMenu>
#include <QPainter>
#include <QSystemTrayIcon>

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    QPixmap pixmap(22, 22);
    pixmap.fill(Qt::transparent);
    QPainter(&pixmap).fillRect(4, 4, 14, 14, Qt::black);
    QMenu menu;
    for (int item = 1; item <= 5; ++item) {
        menu.addAction(QStringLiteral("Item %1").arg(item));
    }
    QSystemTrayIcon tray((QIcon(pixmap)));
    tray.setContextMenu(&menu);
    tray.show();
    return QApplication::exec();
}
