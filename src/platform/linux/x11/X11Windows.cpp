// SPDX-License-Identifier: MIT
#include "platform/linux/x11/X11Windows.h"

#include "platform/linux/x11/Xcb.h"

#include <QEvent>
#include <QWidget>
#include <QWindow>

#include <array>
#include <cmath>
#include <cstring>
#include <span>
#include <vector>
#include <xcb/xfixes.h>

namespace
{
xcb_window_t identifier(const QWidget &window)
{
    (void)window.winId(); // creates the window
    // The widget's own identifier may be that of an earlier window.
    return static_cast<xcb_window_t>(window.windowHandle()->winId());
}

void setCardinals(const QWidget &window, const QByteArray &property,
                  std::span<const uint32_t> values)
{
    xcb_change_property(Xcb::connection(), XCB_PROP_MODE_REPLACE, identifier(window),
                        Xcb::atom(property), XCB_ATOM_CARDINAL, 32,
                        static_cast<uint32_t>(values.size()), values.data());
}

/// The property is lost when a window is hidden, so it is set before each show().
void keepOutOfTaskbar(const QWidget &window)
{
    const std::array atoms{Xcb::atom("_NET_WM_STATE_SKIP_TASKBAR"),
                           Xcb::atom("_NET_WM_STATE_SKIP_PAGER")};
    xcb_change_property(Xcb::connection(), XCB_PROP_MODE_APPEND, identifier(window),
                        Xcb::atom("_NET_WM_STATE"), XCB_ATOM_ATOM, 32, atoms.size(), atoms.data());
}

/// The toolkit tells window managers what to decorate a window with, but not what can be done to
/// it, so some offer to minimise a window that is in no taskbar (Motif's window hints).
void offerMovingAndClosingAlone(const QWidget &window)
{
    constexpr uint32_t functionsAndDecorations = 1 | 2;
    constexpr uint32_t moveAndClose = 4 | 32;
    constexpr uint32_t borderAndTitle = 2 | 8;
    const std::array<uint32_t, 5> hints{functionsAndDecorations, moveAndClose, borderAndTitle, 0,
                                        0};
    const xcb_atom_t property = Xcb::atom("_MOTIF_WM_HINTS");
    xcb_change_property(Xcb::connection(), XCB_PROP_MODE_REPLACE, identifier(window), property,
                        property, 32, hints.size(), hints.data());
}

void prepareToShow(const QWidget &window)
{
    if (!Xcb::connection() || window.isVisible()) {
        return;
    }
    keepOutOfTaskbar(window);
    if (window.windowFlags().testFlag(Qt::CustomizeWindowHint)) {
        offerMovingAndClosingAlone(window);
    }
}

/// Source 2 means a pager, which acts for the user: window managers do not treat this as focus
/// stealing, even while the user is typing (EWMH, _NET_ACTIVE_WINDOW).
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

/// The window that the window manager names in a property of the root window (EWMH).
xcb_window_t windowNamedIn(const QByteArray &property)
{
    const QByteArray bytes = Xcb::property(Xcb::root(), property);
    xcb_window_t window = XCB_WINDOW_NONE;
    if (bytes.size() == sizeof window) {
        std::memcpy(&window, bytes.constData(), sizeof window);
    }
    return window;
}

/// Sway only marks an open window that asks for the focus as urgent, but gives it to each new one.
bool mustOpenAnew(const QWidget &window)
{
    // The toolkit takes a window for the active one until some time after it has lost the focus.
    return window.isVisible() && windowNamedIn("_NET_ACTIVE_WINDOW") != identifier(window)
        && Xcb::property(windowNamedIn("_NET_SUPPORTING_WM_CHECK"), "_NET_WM_NAME") == "wlroots wm";
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

/// Without a background, the part that a window grows by has random colours until it is painted.
void clearWhatGrows(const QWidget &window)
{
    constexpr uint32_t transparent = 0;
    xcb_change_window_attributes(Xcb::connection(), identifier(window), XCB_CW_BACK_PIXEL,
                                 &transparent);
}

/// While a window is being mapped, the toolkit may assume for a moment that it is at the corner of
/// the screen, and moves it there if its size changes at that moment.
class PlaceKeeper final : public QObject
{
public:
    PlaceKeeper(QWidget &window, const QPoint &place)
        : QObject(&window)
        , m_window(window)
        , m_place(place)
    {
        window.installEventFilter(this);
    }

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Resize && !isMapped()) {
            m_window.move(m_place);
        } else if (event->type() == QEvent::Paint && isMapped()) {
            deleteLater();
        }
        return false;
    }

private:
    [[nodiscard]] bool isMapped() const
    {
        return m_window.windowHandle() != nullptr && m_window.windowHandle()->isExposed();
    }

    QWidget &m_window;
    QPoint m_place;
};
} // namespace

void X11Windows::place(QWidget &window, const QPoint &topLeft)
{
    PlainWindows::place(window, topLeft);
    if (!window.isVisible()) {
        new PlaceKeeper(window, topLeft);
    }
}

void X11Windows::present(QWidget &window)
{
    if (Xcb::connection() && mustOpenAnew(window)) {
        window.hide();
    }
    prepareToShow(window);
    PlainWindows::present(window);
    if (Xcb::connection()) {
        activateAsPager(window);
    }
}

void X11Windows::showInactive(QWidget &window)
{
    prepareToShow(window);
    PlainWindows::showInactive(window);
}

/// Mutter withholds the picture of a window that it waits for. If the window is hidden meanwhile,
/// only a new one is seen again.
void X11Windows::withdraw(QWidget &window)
{
    PlainWindows::withdraw(window);
    if (Xcb::connection() && window.windowHandle() != nullptr) {
        window.windowHandle()->destroy();
    }
}

void X11Windows::setShadow(QWidget &window, const QMargins &shadow)
{
    if (!Xcb::connection()) {
        return;
    }
    clearWhatGrows(window);
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
        // An empty list would stand for the whole window.
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
