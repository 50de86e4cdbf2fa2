// SPDX-License-Identifier: MIT
#include "platform/linux/bus/PortalFolderChooser.h"

#include "platform/Windows.h"
#include "platform/linux/bus/PortalRequest.h"

#include <QDBusConnection>
#include <QFile>
#include <QGuiApplication>
#include <QWidget>

namespace
{
const QString fileChooser = QStringLiteral("org.freedesktop.portal.FileChooser");

/// By which the portal knows our window; nothing where only the compositor could tell.
QString handleOf(const QWidget &window)
{
    return QGuiApplication::platformName() == u"xcb"
        ? QStringLiteral("x11:%1").arg(window.winId(), 0, 16)
        : QString();
}

/// Nothing for what is no file of this machine. A byte that is no UTF-8 becomes U+FFFD, as in any
/// name of a file.
QString pathOf(const QString &uri)
{
    const QByteArray scheme = "file://";
    const QByteArray encoded = uri.toUtf8();
    return encoded.startsWith(scheme)
        ? QFile::decodeName(QByteArray::fromPercentEncoding(encoded.mid(scheme.size())))
        : QString();
}
} // namespace

void PortalFolderChooser::choose(QWidget &parent, const QString &prompt,
                                 std::function<void(const QString &path)> chosen)
{
    if (!QDBusConnection::sessionBus().isConnected()) {
        FileDialogFolderChooser::choose(parent, prompt, std::move(chosen));
        return;
    }
    if (m_request) {
        return; // it is modal, and so in front of its parent
    }
    m_request = new PortalRequest(fileChooser, QStringLiteral("OpenFile"),
                                  {handleOf(parent), parent.windowTitle()},
                                  {{QStringLiteral("directory"), true},
                                   {QStringLiteral("modal"), true},
                                   {QStringLiteral("accept_label"), prompt}},
                                  &parent);
    QObject::connect(m_request, &PortalRequest::answered, &parent,
                     [this, &parent, chosen](uint response, const QVariantMap &results) {
                         m_request->deleteLater();
                         m_request.clear();
                         if (parent.isVisible()) {
                             windows().present(parent);
                         }
                         const QStringList uris
                             = results.value(QStringLiteral("uris")).toStringList();
                         const QString path = pathOf(uris.value(0));
                         if (response == 0 && !path.isEmpty()) {
                             chosen(path);
                         }
                     });
    QObject::connect(m_request, &PortalRequest::failed, &parent, [this, &parent, prompt, chosen] {
        m_request->deleteLater();
        m_request.clear();
        FileDialogFolderChooser::choose(parent, prompt, chosen);
    });
}
