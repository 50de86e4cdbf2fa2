// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusMessage>
#include <QObject>
#include <QVariantMap>

/// A request to the desktop portal, which answers once the user has decided
/// (org.freedesktop.portal.Request). Emits accepted() and then answered(), or failed() at any time.
class PortalRequest final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(PortalRequest)

public:
    /// Needs a session bus. @p interface is a portal's, such as "org.freedesktop.portal.Inhibit".
    PortalRequest(const QString &interface, const QString &method, QVariantList arguments,
                  QVariantMap options, QObject *parent);

    /// Withdraws the request in whatever state it is. No signal is emitted any more, and this
    /// object deletes itself once the portal has been informed.
    void close();

signals:
    /// The portal has accepted the request. The user may not have decided yet.
    void accepted();
    /// @p response is 0 if the user agreed.
    void answered(uint response, const QVariantMap &results);
    /// There is no such portal, or it has ended.
    void failed();

private slots:
    void responseReceived(const QDBusMessage &message);

private:
    void requestAnswered(const QDBusMessage &reply);
    void listenTo(const QString &path);
    void sendClose() const;

    QString m_path;
    bool m_isAccepted = false;
    bool m_isClosed = false;
};
