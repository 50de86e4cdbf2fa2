// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusArgument>
#include <QDBusVariant>
#include <QList>
#include <QMetaType>
#include <QVariantMap>

class QAction;

/// The names of keys in shortcuts that the host understands; each host understands only one kind.
enum class KeyNames { X11, Toolkit };

/// The data types of the interface com.canonical.dbusmenu (libdbusmenu, dbus-menu.xml).
struct BusMenuItem {
    int id = 0;
    QVariantMap properties;
};

struct BusMenuItemKeys {
    int id = 0;
    QStringList properties;
};

struct BusMenuLayout {
    int id = 0;
    QVariantMap properties;
    QList<BusMenuLayout> children;
};

struct BusMenuEvent {
    int id = 0;
    QString name;
    QDBusVariant data;
    uint timestamp = 0;
};

Q_DECLARE_METATYPE(BusMenuItem)
Q_DECLARE_METATYPE(BusMenuItemKeys)
Q_DECLARE_METATYPE(BusMenuLayout)
Q_DECLARE_METATYPE(BusMenuEvent)

QDBusArgument &operator<<(QDBusArgument &argument, const BusMenuItem &item);
const QDBusArgument &operator>>(const QDBusArgument &argument, BusMenuItem &item);
QDBusArgument &operator<<(QDBusArgument &argument, const BusMenuItemKeys &keys);
const QDBusArgument &operator>>(const QDBusArgument &argument, BusMenuItemKeys &keys);
QDBusArgument &operator<<(QDBusArgument &argument, const BusMenuLayout &layout);
const QDBusArgument &operator>>(const QDBusArgument &argument, BusMenuLayout &layout);
QDBusArgument &operator<<(QDBusArgument &argument, const BusMenuEvent &event);
const QDBusArgument &operator>>(const QDBusArgument &argument, BusMenuEvent &event);

/// Must be called before any of these types is sent.
void registerBusMenuTypes();

/// The properties with which the desktop shows @p action. Those that can change are always
/// included.
[[nodiscard]] QVariantMap busMenuProperties(const QAction &action, KeyNames names);
