// SPDX-License-Identifier: MIT
#include "platform/linux/portal/PortalFolderChooser.h"

#include "platform/Windows.h"
#include "platform/linux/portal/PortalRequest.h"

#include <QDBusConnection>
#include <QFile>
#include <QGuiApplication>
#include <QWidget>
#include <QWindow>

namespace
{
const QString fileChooser = QStringLiteral("org.freedesktop.portal.FileChooser");

/// The portal's identifier for @p window; empty on Wayland, where only the compositor could provide
/// one.
QString handleOf(const QWidget &window)
{
    // The widget's own identifier may be that of an earlier window.
    return QGuiApplication::platformName() == u"xcb"
        ? QStringLiteral("x11:%1").arg(window.windowHandle()->winId(), 0, 16)
        : QString();
}

/// The path of a local file; empty for any other URI. Bytes that are not valid UTF-8 become U+FFFD,
/// as in any file name that the toolkit decodes.
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
        return; // the open chooser is modal, so it is already in front of its parent
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
