// SPDX-License-Identifier: MIT
#include "platform/linux/layershell/roundTrip.h"

#include <QEvent>
#include <QGuiApplication>
#include <QPointer>
#include <QWidget>

#include <memory>
#include <utility>
#include <wayland-client.h>

namespace
{
struct Wait {
    QPointer<QObject> receiver;
    std::function<void()> done;
};

void finish(void *data, wl_callback *callback, uint32_t)
{
    wl_callback_destroy(callback);
    const std::unique_ptr<Wait> wait(static_cast<Wait *>(data));
    if (wait->receiver) {
        // Not while the toolkit reads from the compositor.
        QMetaObject::invokeMethod(wait->receiver, wait->done, Qt::QueuedConnection);
    }
}

/// Deletes itself after the next frame.
class FrameWatcher final : public QObject
{
public:
    FrameWatcher(QWidget &window, Wait wait)
        : QObject(&window)
        , m_wait(std::move(wait))
    {
        window.installEventFilter(this);
    }

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Paint && !std::exchange(m_hasSeenFrame, true)) {
            // Queued behind the frame, which is sent when everything is painted.
            QMetaObject::invokeMethod(this, &FrameWatcher::finishFrame, Qt::QueuedConnection);
        }
        return false;
    }

private:
    void finishFrame()
    {
        if (m_wait.receiver) {
            afterRoundTrip(*m_wait.receiver, m_wait.done);
        }
        deleteLater();
    }

    Wait m_wait;
    bool m_hasSeenFrame = false;
};
} // namespace

void afterRoundTrip(QObject &receiver, const std::function<void()> &done)
{
    auto *const wayland = qGuiApp->nativeInterface<QNativeInterface::QWaylandApplication>();
    static constexpr wl_callback_listener listener{finish};
    wl_callback *const callback = wl_display_sync(wayland->display());
    wl_callback_add_listener(callback, &listener, new Wait{.receiver = &receiver, .done = done});
    wl_display_flush(wayland->display());
}

void afterNextFrame(QWidget &window, QObject &receiver, const std::function<void()> &done)
{
    new FrameWatcher(window, {.receiver = &receiver, .done = done});
    window.update();
}
