// SPDX-License-Identifier: MIT
#pragma once

#include "platform/TrayHost.h"

#include <QDBusMessage>

class SelectionOwner;

/// A StatusNotifier host on the session bus, or, where none has come after a grace, a tray of the
/// old protocol on the X server.
class StatusNotifierTrayHost final : public TrayHost
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(StatusNotifierTrayHost)

public:
    StatusNotifierTrayHost() = default;

    void find() override;
    [[nodiscard]] bool drawsMenus() const override
    {
        return m_protocol == Protocol::StatusNotifier;
    }
    [[nodiscard]] QColor foreground() const override;

private slots:
    void watcherSignalled(const QDBusMessage &message);

private:
    enum class Protocol { None, StatusNotifier, SystemTray };

    bool eventFilter(QObject *watched, QEvent *event) override;
    void watchStatusNotifierHosts();
    void askForStatusNotifierHost();
    void considerSystemTray();
    void take(Protocol protocol);
    void settle();

    Protocol m_protocol = Protocol::None;
    bool m_isSettled = false;
    SelectionOwner *m_systemTray = nullptr;
};
