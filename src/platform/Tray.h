// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>
#include <QObject>
#include <QString>

#include <functional>

class QMenu;

/// The desktop's system tray, whenever there is one: it may come late, go and come back, and
/// nothing waits for it.
class Tray : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(Tray)

public:
    using QObject::QObject;

    struct Item {
        /// By which a desktop remembers what the user wants of the item.
        QString id;
        /// What the desktop shows at the pointer.
        QString title;
        /// The picture in one colour, as large as it is asked for. Its name is that of an installed
        /// file, which a desktop may take instead and recolour.
        std::function<QIcon(const QColor &color)> icon;
        /// Shown by the desktop from a description that follows the menu's changes, or as it is.
        /// Must outlive the tray.
        QMenu *menu;
    };

    /// To be called once.
    virtual void show(const Item &item) = 0;
};
