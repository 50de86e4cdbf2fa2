// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QObject>

#include <memory>

/// The place on the desktop where a tray icon can be shown. The toolkit decides for good, when the
/// first icon is made, which protocol it speaks; so an icon is made only once a host is found.
class TrayHost : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(TrayHost)

public:
    using QObject::QObject;

    [[nodiscard]] static std::unique_ptr<TrayHost> ofThisPlatform();

    /// Looks for a host, now and for as long as there is none.
    virtual void find() = 0;
    /// Whether the host draws the icon's menu itself, from a description, or leaves it to us.
    [[nodiscard]] virtual bool drawsMenus() const = 0;
    /// The colour in which a picture is seen well on the host, as far as that can be told.
    [[nodiscard]] virtual QColor foreground() const = 0;

signals:
    /// An icon that is made now will be shown. Sent once.
    void found();
    /// The icon that was made has reached the host, or there is no host to wait for. Sent once.
    void settled();
    /// foreground() is different now.
    void foregroundChanged();
};
