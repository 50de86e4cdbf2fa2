// SPDX-License-Identifier: MIT
#include "platform/generic/ToolkitTray.h"

#include "platform/Appearance.h"

#include <QCursor>
#include <QMenu>
#include <QSystemTrayIcon>

QColor ToolkitTray::foregroundIn(const Appearance &appearance)
{
    return appearance.colorScheme() == ColorScheme::Dark ? Qt::white : Qt::black;
}

ToolkitTray::ToolkitTray(const Appearance &appearance,
                         std::function<QColor(const Appearance &)> foreground)
    : m_appearance(appearance)
    , m_foreground(std::move(foreground))
{
    connect(&appearance, &Appearance::changed, this, &ToolkitTray::updateIcon);
}

ToolkitTray::~ToolkitTray() = default;

void ToolkitTray::show(const Item &item)
{
    m_item = item;
    m_icon = std::make_unique<QSystemTrayIcon>(item.icon(m_foreground(m_appearance)));
    m_icon->setToolTip(item.title);
    m_icon->setContextMenu(item.menu);
    connect(m_icon.get(), &QSystemTrayIcon::activated, this,
            [this](QSystemTrayIcon::ActivationReason reason) {
                if (reason != QSystemTrayIcon::Context) {
                    m_item.menu->popup(QCursor::pos());
                }
            });
    m_icon->show();
}

void ToolkitTray::updateIcon()
{
    if (m_icon) {
        m_icon->setIcon(m_item.icon(m_foreground(m_appearance)));
    }
}
