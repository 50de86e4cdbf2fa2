// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusMessage>
#include <QObject>
#include <QVariantMap>

/// Something asked of the desktop portal that it answers whenever the user has decided
/// (org.freedesktop.portal.Request). Ends with exactly one of its signals.
class PortalRequest final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(PortalRequest)

public:
    /// Needs a session bus. @p interface is a portal's, such as "org.freedesktop.portal.Inhibit".
    PortalRequest(const QString &interface, const QString &method, QVariantList arguments,
                  QVariantMap options, QObject *parent);

    /// Takes the request back, whatever has come of it.
    void close();

signals:
    /// The portal has taken the request.
    void accepted();
    /// @p response is 0 where the user agreed.
    void answered(uint response, const QVariantMap &results);
    /// There is no such portal, or it went away.
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
