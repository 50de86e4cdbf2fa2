// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/x11/Xcb.h"

#include <QByteArray>
#include <QList>

#include <algorithm>
#include <iterator>

/// Another program on the X server, with a connection and a window of its own. Hears what is sent
/// to the root window, as window managers do.
class X11Peer final
{
    Q_DISABLE_COPY_MOVE(X11Peer)

public:
    X11Peer()
    {
        constexpr uint32_t events = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
        xcb_change_window_attributes(m_connection, Xcb::root(), XCB_CW_EVENT_MASK, &events);
        xcb_create_window(m_connection, XCB_COPY_FROM_PARENT, m_window, Xcb::root(), 0, 0, 1, 1, 0,
                          XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
        synchronise();
    }
    /// Ends as by a crash: the server destroys the window and takes back the selections. Whoever
    /// watched them hears of it with the next events.
    ~X11Peer()
    {
        xcb_disconnect(m_connection);
        while (isThere(m_window)) { }
    }

    [[nodiscard]] xcb_window_t window() const { return m_window; }

    void own(const QByteArray &selection)
    {
        xcb_set_selection_owner(m_connection, m_window, Xcb::atom(selection), XCB_CURRENT_TIME);
        synchronise();
    }
    void disown(const QByteArray &selection)
    {
        xcb_set_selection_owner(m_connection, XCB_WINDOW_NONE, Xcb::atom(selection),
                                XCB_CURRENT_TIME);
        synchronise();
    }
    /// Tells everybody that this program has begun to own @p selection (ICCCM 2.8).
    void announce(const QByteArray &selection)
    {
        xcb_client_message_event_t event{};
        event.response_type = XCB_CLIENT_MESSAGE;
        event.format = 32;
        event.window = Xcb::root();
        event.type = Xcb::atom("MANAGER");
        event.data.data32[1] = Xcb::atom(selection);
        event.data.data32[2] = m_window;
        xcb_send_event(m_connection, 0, Xcb::root(), XCB_EVENT_MASK_STRUCTURE_NOTIFY,
                       reinterpret_cast<const char *>(&event));
        synchronise();
    }

    void setText(xcb_window_t window, const QByteArray &property, const QByteArray &text)
    {
        xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, window, Xcb::atom(property),
                            XCB_ATOM_STRING, 8, static_cast<uint32_t>(text.size()),
                            text.constData());
        synchronise();
    }
    void setWindow(xcb_window_t window, const QByteArray &property, xcb_window_t value)
    {
        xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, window, Xcb::atom(property),
                            XCB_ATOM_WINDOW, 32, 1, &value);
        synchronise();
    }
    void removeProperty(xcb_window_t window, const QByteArray &property)
    {
        xcb_delete_property(m_connection, window, Xcb::atom(property));
        synchronise();
    }

    /// The messages of this type that the root window has been sent so far.
    QList<xcb_client_message_event_t> messages(const QByteArray &type)
    {
        using Event = Xcb::Owned<xcb_generic_event_t>;
        while (const Event event{xcb_poll_for_event(m_connection)}) {
            if ((event->response_type & 0x7F) == XCB_CLIENT_MESSAGE) {
                m_messages.append(
                    *reinterpret_cast<const xcb_client_message_event_t *>(event.get()));
            }
        }
        QList<xcb_client_message_event_t> ofType;
        std::ranges::copy_if(
            m_messages, std::back_inserter(ofType),
            [wanted = Xcb::atom(type)](const auto &message) { return message.type == wanted; });
        return ofType;
    }

private:
    static bool isThere(xcb_window_t window)
    {
        auto *const connection = Xcb::connection();
        return Xcb::Owned<xcb_get_window_attributes_reply_t>(xcb_get_window_attributes_reply(
                   connection, xcb_get_window_attributes(connection, window), nullptr))
            != nullptr;
    }
    /// Returns once the server has carried out everything that was asked of it.
    void synchronise()
    {
        const Xcb::Owned<xcb_get_input_focus_reply_t> reply(
            xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
    }

    xcb_connection_t *m_connection = xcb_connect(nullptr, nullptr);
    xcb_window_t m_window = xcb_generate_id(m_connection);
    QList<xcb_client_message_event_t> m_messages;
};
