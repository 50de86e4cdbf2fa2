// SPDX-License-Identifier: MIT
#include "platform/linux/x11/Xcb.h"

#include <QGuiApplication>
#include <QHash>
#include <QtGui/qguiapplication_platform.h>

xcb_connection_t *Xcb::connection()
{
    const auto *x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 ? x11->connection() : nullptr;
}

xcb_atom_t Xcb::atom(const QByteArray &name)
{
    static QHash<QByteArray, xcb_atom_t> known;
    if (const xcb_atom_t atom = known.value(name, XCB_ATOM_NONE); atom != XCB_ATOM_NONE) {
        return atom;
    }
    const auto cookie
        = xcb_intern_atom(connection(), 0, static_cast<uint16_t>(name.size()), name.constData());
    const Owned<xcb_intern_atom_reply_t> reply(
        xcb_intern_atom_reply(connection(), cookie, nullptr));
    return known[name] = reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

QByteArray Xcb::property(xcb_window_t window, const QByteArray &name)
{
    constexpr uint32_t longest = 1024; // in units of four bytes
    const Owned<xcb_get_property_reply_t> reply(xcb_get_property_reply(
        connection(),
        xcb_get_property(connection(), 0, window, atom(name), XCB_ATOM_ANY, 0, longest), nullptr));
    return reply ? QByteArray(static_cast<const char *>(xcb_get_property_value(reply.get())),
                              xcb_get_property_value_length(reply.get()))
                 : QByteArray();
}

int Xcb::screenNumber()
{
    int screen = 0;
    char *host = nullptr;
    int display = 0;
    if (xcb_parse_display(nullptr, &host, &display, &screen) != 0) {
        std::free(host);
    }
    return screen;
}

xcb_window_t Xcb::root()
{
    auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection()));
    for (int left = screenNumber(); left > 0 && screens.rem > 1; --left) {
        xcb_screen_next(&screens);
    }
    return screens.data->root;
}
