// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>
#include <QObject>
#include <QString>

#include <functional>

class QMenu;

/// The desktop's system tray. It may appear late, disappear and come back; nothing blocks on it.
class Tray : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(Tray)

public:
    using QObject::QObject;

    struct Item {
        /// Identifies the item in the desktop's own settings.
        QString id;
        /// Shown by the desktop as the tooltip.
        QString title;
        /// The icon in one colour, at any size. Its name is that of an installed file, which the
        /// desktop may use instead and recolour.
        std::function<QIcon(const QColor &color)> icon;
        /// Drawn by the desktop, which follows the menu's changes, or by the toolkit. Must exist
        /// until the event loop has ended.
        QMenu *menu;
    };

    /// Must be called only once.
    virtual void show(const Item &item) = 0;

signals:
    /// No tray shows the item, and every tray that exists has been asked. Emitted at most once; a
    /// tray may still appear later.
    void foundMissing();
};
