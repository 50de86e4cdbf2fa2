// SPDX-License-Identifier: MIT
#include "platform/linux/menu/BusMenuTypes.h"

#include <QAction>
#include <QDBusMetaType>
#include <QKeySequence>

namespace
{
using Shortcut = QList<QStringList>;

/// In dbusmenu, "_" marks the mnemonic and is doubled to show one; the toolkit uses "&" in the same
/// way.
QString label(const QString &text)
{
    QString label;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text.at(i) == u'_') {
            label += QStringLiteral("__");
        } else if (text.at(i) != u'&') {
            label += text.at(i);
        } else if (i + 1 < text.size() && text.at(i + 1) == u'&') {
            label += u'&';
            ++i;
        } else {
            label += u'_';
        }
    }
    return label;
}

QString keyName(Qt::Key key, KeyNames names)
{
    if (key == Qt::Key_Comma && names == KeyNames::X11) {
        return QStringLiteral("comma");
    }
    return QKeySequence(key).toString(QKeySequence::PortableText);
}

Shortcut shortcut(const QKeySequence &keys, KeyNames keyNames)
{
    if (keys.isEmpty()) {
        return {};
    }
    QStringList names;
    const QKeyCombination first = keys[0];
    if (first.keyboardModifiers().testFlag(Qt::ControlModifier)) {
        names.append(QStringLiteral("Control"));
    }
    names.append(keyName(first.key(), keyNames));
    return {names};
}
} // namespace

QVariantMap busMenuProperties(const QAction &action, KeyNames names)
{
    if (action.isSeparator()) {
        return {{QStringLiteral("type"), QStringLiteral("separator")},
                {QStringLiteral("visible"), action.isVisible()}};
    }
    QVariantMap properties{{QStringLiteral("label"), label(action.text())},
                           {QStringLiteral("enabled"), action.isEnabled()},
                           {QStringLiteral("visible"), action.isVisible()}};
    if (const Shortcut keys = shortcut(action.shortcut(), names); !keys.isEmpty()) {
        properties.insert(QStringLiteral("shortcut"), QVariant::fromValue(keys));
    }
    return properties;
}

QDBusArgument &operator<<(QDBusArgument &argument, const BusMenuItem &item)
{
    argument.beginStructure();
    argument << item.id << item.properties;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, BusMenuItem &item)
{
    argument.beginStructure();
    argument >> item.id >> item.properties;
    argument.endStructure();
    return argument;
}

QDBusArgument &operator<<(QDBusArgument &argument, const BusMenuItemKeys &keys)
{
    argument.beginStructure();
    argument << keys.id << keys.properties;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, BusMenuItemKeys &keys)
{
    argument.beginStructure();
    argument >> keys.id >> keys.properties;
    argument.endStructure();
    return argument;
}

QDBusArgument &operator<<(QDBusArgument &argument, const BusMenuLayout &layout)
{
    argument.beginStructure();
    argument << layout.id << layout.properties;
    argument.beginArray(QMetaType::fromType<QDBusVariant>());
    for (const BusMenuLayout &child : layout.children) {
        argument << QDBusVariant(QVariant::fromValue(child));
    }
    argument.endArray();
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, BusMenuLayout &layout)
{
    argument.beginStructure();
    argument >> layout.id >> layout.properties;
    argument.beginArray();
    while (!argument.atEnd()) {
        QDBusVariant child;
        argument >> child;
        layout.children.append(qdbus_cast<BusMenuLayout>(child.variant()));
    }
    argument.endArray();
    argument.endStructure();
    return argument;
}

QDBusArgument &operator<<(QDBusArgument &argument, const BusMenuEvent &event)
{
    argument.beginStructure();
    argument << event.id << event.name << event.data << event.timestamp;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, BusMenuEvent &event)
{
    argument.beginStructure();
    argument >> event.id >> event.name >> event.data >> event.timestamp;
    argument.endStructure();
    return argument;
}

void registerBusMenuTypes()
{
    qDBusRegisterMetaType<BusMenuItem>();
    qDBusRegisterMetaType<QList<BusMenuItem>>();
    qDBusRegisterMetaType<BusMenuItemKeys>();
    qDBusRegisterMetaType<QList<BusMenuItemKeys>>();
    qDBusRegisterMetaType<BusMenuLayout>();
    qDBusRegisterMetaType<BusMenuEvent>();
    qDBusRegisterMetaType<QList<BusMenuEvent>>();
    qDBusRegisterMetaType<Shortcut>();
}
