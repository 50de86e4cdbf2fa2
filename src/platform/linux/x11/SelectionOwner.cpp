// SPDX-License-Identifier: MIT
#include "platform/linux/x11/SelectionOwner.h"

#include "platform/linux/x11/Xcb.h"

#include <QCoreApplication>

#include <xcb/xfixes.h>

SelectionOwner::SelectionOwner(const QByteArray &prefix, QObject *parent)
    : QObject(parent)
{
    auto *const connection = Xcb::connection();
    if (!connection) {
        return;
    }
    m_selection = Xcb::atom(prefix + QByteArray::number(Xcb::screenNumber()));
    if (const auto *xfixes = xcb_get_extension_data(connection, &xcb_xfixes_id);
        xfixes && xfixes->present != 0) {
        m_notifyEvent = static_cast<uint8_t>(xfixes->first_event + XCB_XFIXES_SELECTION_NOTIFY);
        xcb_xfixes_select_selection_input(
            connection, Xcb::root(), m_selection,
            XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER
                | XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY
                | XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE);
        QCoreApplication::instance()->installNativeEventFilter(this);
    }
    // Queried after the watch is set up, so that no change is missed in between.
    const Xcb::Owned<xcb_get_selection_owner_reply_t> owner(xcb_get_selection_owner_reply(
        connection, xcb_get_selection_owner(connection, m_selection), nullptr));
    m_exists = owner && owner->owner != XCB_WINDOW_NONE;
}

SelectionOwner::~SelectionOwner()
{
    if (auto *const application = QCoreApplication::instance()) {
        application->removeNativeEventFilter(this);
    }
}

bool SelectionOwner::nativeEventFilter(const QByteArray &type, void *message, qintptr *)
{
    const auto *event = static_cast<const xcb_generic_event_t *>(message);
    if (type != "xcb_generic_event_t" || (event->response_type & ~0x80) != m_notifyEvent) {
        return false;
    }
    const auto *notify = static_cast<const xcb_xfixes_selection_notify_event_t *>(message);
    const bool exists = notify->owner != XCB_WINDOW_NONE;
    if (notify->selection == m_selection && exists != m_exists) {
        m_exists = exists;
        emit changed();
    }
    return false;
}
