// SPDX-License-Identifier: MIT
#include "platform/linux/xsettings/XSettings.h"

#include "platform/linux/x11/Xcb.h"
#include "platform/linux/xsettings/XSettingsFormat.h"

#include <QCoreApplication>

namespace
{
xcb_atom_t atomOf(xcb_connection_t *connection, const QByteArray &name)
{
    const Xcb::Owned<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
        connection,
        xcb_intern_atom(connection, 0, static_cast<uint16_t>(name.size()), name.constData()),
        nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

xcb_window_t ownerOf(xcb_connection_t *connection, int screen)
{
    const xcb_atom_t selection = atomOf(connection, "_XSETTINGS_S" + QByteArray::number(screen));
    const Xcb::Owned<xcb_get_selection_owner_reply_t> reply(xcb_get_selection_owner_reply(
        connection, xcb_get_selection_owner(connection, selection), nullptr));
    return reply ? reply->owner : xcb_window_t{XCB_WINDOW_NONE};
}

QHash<QByteArray, QVariant> read(xcb_connection_t *connection, xcb_window_t owner)
{
    constexpr uint32_t longest = 1024 * 1024; // in units of four bytes
    const Xcb::Owned<xcb_get_property_reply_t> reply(xcb_get_property_reply(
        connection,
        xcb_get_property(connection, 0, owner, atomOf(connection, "_XSETTINGS_SETTINGS"),
                         XCB_ATOM_ANY, 0, longest),
        nullptr));
    return reply ? xSettingsIn({static_cast<const char *>(xcb_get_property_value(reply.get())),
                                xcb_get_property_value_length(reply.get())})
                 : QHash<QByteArray, QVariant>();
}
} // namespace

QHash<QByteArray, QVariant> XSettings::readOnce()
{
    int screen = 0;
    xcb_connection_t *const connection = xcb_connect(nullptr, &screen);
    QHash<QByteArray, QVariant> values;
    if (xcb_connection_has_error(connection) == 0) {
        if (const xcb_window_t owner = ownerOf(connection, screen); owner != XCB_WINDOW_NONE) {
            values = read(connection, owner);
        }
    }
    xcb_disconnect(connection);
    return values;
}

XSettings::XSettings(QObject *parent)
    : QObject(parent)
{
    if (!Xcb::connection()) {
        return;
    }
    QCoreApplication::instance()->installNativeEventFilter(this);
    follow(ownerOf(Xcb::connection(), Xcb::screenNumber()));
}

XSettings::~XSettings()
{
    if (auto *const application = QCoreApplication::instance()) {
        application->removeNativeEventFilter(this);
    }
}

void XSettings::follow(xcb_window_t owner)
{
    m_owner = owner;
    if (owner != XCB_WINDOW_NONE) {
        constexpr uint32_t events
            = XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
        xcb_change_window_attributes(Xcb::connection(), owner, XCB_CW_EVENT_MASK, &events);
    }
    refresh();
}

void XSettings::refresh()
{
    m_values = m_owner == XCB_WINDOW_NONE ? QHash<QByteArray, QVariant>()
                                          : read(Xcb::connection(), m_owner);
    emit changed();
}

bool XSettings::nativeEventFilter(const QByteArray &type, void *message, qintptr *)
{
    if (type != "xcb_generic_event_t") {
        return false;
    }
    const auto *event = static_cast<const xcb_generic_event_t *>(message);
    switch (event->response_type & ~0x80) {
    case XCB_PROPERTY_NOTIFY:
        if (static_cast<const xcb_property_notify_event_t *>(message)->window == m_owner) {
            refresh();
        }
        break;
    case XCB_DESTROY_NOTIFY:
        if (static_cast<const xcb_destroy_notify_event_t *>(message)->window == m_owner) {
            follow(ownerOf(Xcb::connection(), Xcb::screenNumber()));
        }
        break;
    case XCB_CLIENT_MESSAGE: {
        // A new daemon announces itself to the root window, by the name MANAGER (ICCCM 2.8).
        const auto *message32 = static_cast<const xcb_client_message_event_t *>(message);
        if (message32->type == Xcb::atom("MANAGER") && m_owner == XCB_WINDOW_NONE) {
            follow(ownerOf(Xcb::connection(), Xcb::screenNumber()));
        }
        break;
    }
    default:
        break;
    }
    return false;
}
