// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QDBusArgument>
#include <QList>
#include <QMetaType>
#include <QString>

/// The data types of the interface org.kde.StatusNotifierItem (freedesktop.org,
/// StatusNotifierItem).
struct StatusNotifierPicture {
    /// In pixels.
    int width = 0;
    int height = 0;
    /// ARGB, not premultiplied, most significant byte first.
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

/// Must be called before any of these is sent.
void registerStatusNotifierTypes();
