// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QDBusArgument>
#include <QList>
#include <QMetaType>
#include <QString>

/// What the interface org.kde.StatusNotifierItem sends over the bus
/// (freedesktop.org, StatusNotifierItem).
struct StatusNotifierPicture {
    /// Pixels.
    int width = 0;
    int height = 0;
    /// ARGB, not premultiplied, the most significant byte first.
    QByteArray bytes;
};

struct StatusNotifierToolTip {
    QString iconName;
    QList<StatusNotifierPicture> icon;
    QString title;
    QString text;
};

Q_DECLARE_METATYPE(StatusNotifierPicture)
Q_DECLARE_METATYPE(StatusNotifierToolTip)

QDBusArgument &operator<<(QDBusArgument &argument, const StatusNotifierPicture &picture);
const QDBusArgument &operator>>(const QDBusArgument &argument, StatusNotifierPicture &picture);
QDBusArgument &operator<<(QDBusArgument &argument, const StatusNotifierToolTip &toolTip);
const QDBusArgument &operator>>(const QDBusArgument &argument, StatusNotifierToolTip &toolTip);

/// Before any of these is sent.
void registerStatusNotifierTypes();
