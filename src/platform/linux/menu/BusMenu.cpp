// SPDX-License-Identifier: MIT
#include "platform/linux/menu/BusMenu.h"

#include <QGuiApplication>
#include <QMenu>

namespace
{
// The id of the menu itself; items are numbered from 1.
constexpr int rootId = 0;
// Never changes, because items are never added, removed or moved.
constexpr uint layoutRevision = 1;
} // namespace

QString BusMenu::path()
{
    return QStringLiteral("/MenuBar");
}

BusMenu::BusMenu(QMenu &menu, KeyNames keyNames, QObject *parent)
    : QObject(parent)
    , m_menu(menu)
    , m_keyNames(keyNames)
{
    const QList<QAction *> actions = menu.actions();
    for (int id = 1; id <= actions.size(); ++id) {
        connect(action(id), &QAction::changed, this, [this, id] {
            emit ItemsPropertiesUpdated({{id, busMenuProperties(*action(id), m_keyNames)}}, {});
        });
    }
}

QString BusMenu::textDirection()
{
    return QGuiApplication::isRightToLeft() ? QStringLiteral("rtl") : QStringLiteral("ltr");
}

QAction *BusMenu::action(int id) const
{
    return m_menu.actions().value(id - 1);
}

QVariantMap BusMenu::properties(int id, const QStringList &names) const
{
    if (id == rootId) {
        return {{QStringLiteral("children-display"), QStringLiteral("submenu")}};
    }
    QVariantMap properties = busMenuProperties(*action(id), m_keyNames);
    if (!names.isEmpty()) {
        properties.removeIf([&](auto property) { return !names.contains(property.key()); });
    }
    return properties;
}

uint BusMenu::GetLayout(int parentId, int recursionDepth, const QStringList &propertyNames,
                        BusMenuLayout &layout) const
{
    if (parentId != rootId && !action(parentId)) {
        return layoutRevision;
    }
    layout = {.id = parentId, .properties = properties(parentId, propertyNames), .children = {}};
    if (parentId == rootId && recursionDepth != 0) {
        for (int id = 1; action(id); ++id) {
            layout.children.append(
                {.id = id, .properties = properties(id, propertyNames), .children = {}});
        }
    }
    return layoutRevision;
}

QList<BusMenuItem> BusMenu::GetGroupProperties(const QList<int> &ids,
                                               const QStringList &propertyNames) const
{
    QList<BusMenuItem> items;
    const auto add = [&](int id) { items.append({id, properties(id, propertyNames)}); };
    if (ids.isEmpty()) { // means all items
        for (int id = 1; action(id); ++id) {
            add(id);
        }
    }
    for (const int id : ids) {
        if (id == rootId || action(id)) {
            add(id);
        }
    }
    return items;
}

QDBusVariant BusMenu::GetProperty(int id, const QString &name) const
{
    const QVariant value = id == rootId || action(id) ? properties(id, {}).value(name) : QVariant();
    return QDBusVariant(value.isValid() ? value : QVariant(QString()));
}

void BusMenu::Event(int id, const QString &eventId, const QDBusVariant &, uint)
{
    QAction *const chosen = action(id);
    if (chosen && chosen->isEnabled() && eventId == u"clicked") {
        // Replies to the host first, because the action may open a window or quit the program.
        QMetaObject::invokeMethod(chosen, &QAction::trigger, Qt::QueuedConnection);
    }
}

QList<int> BusMenu::EventGroup(const QList<BusMenuEvent> &events)
{
    QList<int> unknown;
    for (const BusMenuEvent &event : events) {
        if (event.id != rootId && !action(event.id)) {
            unknown.append(event.id);
        }
        Event(event.id, event.name, event.data, event.timestamp);
    }
    return unknown;
}

bool BusMenu::AboutToShow(int id)
{
    if (id == rootId) {
        emit m_menu.aboutToShow();
    }
    return false; // any changes have already been signalled
}

QList<int> BusMenu::AboutToShowGroup(const QList<int> &ids, QList<int> &idErrors)
{
    for (const int id : ids) {
        if (id != rootId && !action(id)) {
            idErrors.append(id);
        }
        AboutToShow(id);
    }
    return {};
}
