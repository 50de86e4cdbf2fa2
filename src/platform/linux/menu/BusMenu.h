// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/menu/BusMenuTypes.h"

#include <QObject>

class QMenu;

/// Exports a menu without submenus on the bus, for desktops that draw it themselves. Changes to the
/// menu are signalled immediately.
class BusMenu final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(BusMenu)
    Q_CLASSINFO("D-Bus Interface", "com.canonical.dbusmenu")
    Q_PROPERTY(uint Version READ version CONSTANT)
    Q_PROPERTY(QString TextDirection READ textDirection CONSTANT)
    Q_PROPERTY(QString Status READ status CONSTANT)
    Q_PROPERTY(QStringList IconThemePath READ iconThemePath CONSTANT)

public:
    static QString path();

    /// @p menu must outlive this object. No items may be added or removed later.
    BusMenu(QMenu &menu, KeyNames keyNames, QObject *parent);

    [[nodiscard]] static uint version() { return 3; }
    [[nodiscard]] static QString textDirection();
    [[nodiscard]] static QString status() { return QStringLiteral("normal"); }
    [[nodiscard]] static QStringList iconThemePath() { return {}; }

public slots: // NOLINT(readability-redundant-access-specifiers): what is exported to the bus
    Q_SCRIPTABLE uint GetLayout(int parentId, int recursionDepth, const QStringList &propertyNames,
                                BusMenuLayout &layout) const;
    [[nodiscard]] Q_SCRIPTABLE QList<BusMenuItem>
    GetGroupProperties(const QList<int> &ids, const QStringList &propertyNames) const;
    [[nodiscard]] Q_SCRIPTABLE QDBusVariant GetProperty(int id, const QString &name) const;
    Q_SCRIPTABLE void Event(int id, const QString &eventId, const QDBusVariant &data,
                            uint timestamp);
    Q_SCRIPTABLE QList<int> EventGroup(const QList<BusMenuEvent> &events);
    Q_SCRIPTABLE bool AboutToShow(int id);
    Q_SCRIPTABLE QList<int> AboutToShowGroup(const QList<int> &ids, QList<int> &idErrors);

signals:
    Q_SCRIPTABLE void ItemsPropertiesUpdated(const QList<BusMenuItem> &updated,
                                             const QList<BusMenuItemKeys> &removed);
    Q_SCRIPTABLE void LayoutUpdated(uint revision, int parent);
    Q_SCRIPTABLE void ItemActivationRequested(int id, uint timestamp);

private:
    /// Null if no item has this id.
    [[nodiscard]] QAction *action(int id) const;
    [[nodiscard]] QVariantMap properties(int id, const QStringList &names) const;

    QMenu &m_menu;
    KeyNames m_keyNames;
};
