// SPDX-License-Identifier: MIT
#include "platform/linux/x11/X11Windows.h"

#include "platform/linux/x11/Xcb.h"

#include <QWidget>

#include <array>
#include <cmath>
#include <span>
#include <vector>
#include <xcb/xfixes.h>

namespace
{
xcb_window_t identifier(const QWidget &window)
{
    return static_cast<xcb_window_t>(window.winId());
}

void setCardinals(const QWidget &window, const QByteArray &property,
                  std::span<const uint32_t> values)
{
    xcb_change_property(Xcb::connection(), XCB_PROP_MODE_REPLACE, identifier(window),
                        Xcb::atom(property), XCB_ATOM_CARDINAL, 32,
                        static_cast<uint32_t>(values.size()), values.data());
}

/// Hiding a window wipes this property, so it is set again before each showing.
void keepOutOfTaskbar(const QWidget &window)
{
    const std::array atoms{Xcb::atom("_NET_WM_STATE_SKIP_TASKBAR"),
                           Xcb::atom("_NET_WM_STATE_SKIP_PAGER")};
    xcb_change_property(Xcb::connection(), XCB_PROP_MODE_APPEND, identifier(window),
                        Xcb::atom("_NET_WM_STATE"), XCB_ATOM_ATOM, 32, atoms.size(), atoms.data());
}

/// Source 2 is a pager's, which speaks for the user: no window manager takes it for a window that
/// steals the focus from somebody who is typing (EWMH, _NET_ACTIVE_WINDOW).
void activateAsPager(const QWidget &window)
{
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = identifier(window);
    event.type = Xcb::atom("_NET_ACTIVE_WINDOW");
    event.data.data32[0] = 2;
    event.data.data32[1] = XCB_CURRENT_TIME;
    xcb_send_event(Xcb::connection(), 0, Xcb::root(),
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char *>(&event));
    xcb_flush(Xcb::connection());
}

QRect inDevicePixels(const QRect &rect, qreal ratio)
{
    return QRectF(rect.topLeft() * ratio, rect.size() * ratio).toAlignedRect();
}

void setInputRect(const QWidget &window, const QRect &rect)
{
    auto *const connection = Xcb::connection();
    const xcb_rectangle_t rectangle{static_cast<int16_t>(rect.x()), static_cast<int16_t>(rect.y()),
                                    static_cast<uint16_t>(rect.width()),
                                    static_cast<uint16_t>(rect.height())};
    const xcb_xfixes_region_t region = xcb_generate_id(connection);
    xcb_xfixes_create_region(connection, region, 1, &rectangle);
    constexpr xcb_shape_kind_t input = 2; // XCB_SHAPE_SK_INPUT
    xcb_xfixes_set_window_shape_region(connection, identifier(window), input, 0, 0, region);
    xcb_xfixes_destroy_region(connection, region);
}
} // namespace

void X11Windows::present(QWidget &window)
{
    if (Xcb::connection() && !window.isVisible()) {
        window.winId();
        keepOutOfTaskbar(window);
    }
    window.show();
    window.raise();
    window.activateWindow();
    if (Xcb::connection()) {
        activateAsPager(window);
    }
}

void X11Windows::setShadow(QWidget &window, const QMargins &shadow)
{
    if (!Xcb::connection()) {
        return;
    }
    const qreal ratio = window.devicePixelRatioF();
    const auto extent
        = [ratio](int logical) { return static_cast<uint32_t>(std::lround(logical * ratio)); };
    const std::array extents{extent(shadow.left()), extent(shadow.right()), extent(shadow.top()),
                             extent(shadow.bottom())};
    setCardinals(window, "_GTK_FRAME_EXTENTS", extents);
    setInputRect(window, inDevicePixels(window.rect().marginsRemoved(shadow), ratio));
}

void X11Windows::setBlurBehind(QWidget &window, const QRegion &region)
{
    if (!Xcb::connection()) {
        return;
    }
    const QByteArray property = "_KDE_NET_WM_BLUR_BEHIND_REGION";
    if (region.isEmpty()) {
        // An empty list would mean the whole window.
        xcb_delete_property(Xcb::connection(), identifier(window), Xcb::atom(property));
        return;
    }
    std::vector<uint32_t> strips;
    for (const QRect &logical : region) {
        const QRect strip = inDevicePixels(logical, window.devicePixelRatioF());
        for (const int value : {strip.x(), strip.y(), strip.width(), strip.height()}) {
            strips.push_back(static_cast<uint32_t>(value));
        }
    }
    setCardinals(window, property, strips);
}
