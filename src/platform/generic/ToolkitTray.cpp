// SPDX-License-Identifier: MIT
#include "platform/generic/ToolkitTray.h"

#include "platform/generic/ToolkitAppearance.h"

#include <QCursor>
#include <QEvent>
#include <QGuiApplication>
#include <QMenu>
#include <QPalette>
#include <QSystemTrayIcon>

QColor ToolkitTray::foregroundOfPalette()
{
    return ToolkitAppearance::schemeOf(QGuiApplication::palette()) == ColorScheme::Dark ? Qt::white
                                                                                        : Qt::black;
}

ToolkitTray::ToolkitTray(std::function<QColor()> foreground)
    : m_foreground(std::move(foreground))
{
    qGuiApp->installEventFilter(this);
}

ToolkitTray::~ToolkitTray() = default;

void ToolkitTray::show(const Item &item)
{
    m_item = item;
    m_icon = std::make_unique<QSystemTrayIcon>(item.icon(m_foreground()));
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

bool ToolkitTray::eventFilter(QObject *watched, QEvent *event)
{
    if (m_icon && watched == qGuiApp && event->type() == QEvent::ApplicationPaletteChange) {
        m_icon->setIcon(m_item.icon(m_foreground()));
    }
    return false;
}
