// SPDX-License-Identifier: MIT
#include "platform/linux/layershell/LayerSurface.h"

#include "platform/linux/layershell/DraggedPicture.h"
#include "platform/linux/layershell/roundTrip.h"

#include <QApplication>
#include <QMouseEvent>
#include <QScreen>
#include <QWidget>
#include <QWindow>

#include <LayerShellQt/Window>
#include <utility>

using LayerShellQt::Window;

namespace
{
Window &layerShellWindow(QWidget &window)
{
    (void)window.winId(); // creates the native window
    return *Window::get(window.windowHandle());
}

/// LayerShellQt 6.6 replaced the one way with the other.
template <typename Surface>
void letCompositorChooseScreen(Surface &surface)
{
    if constexpr (requires { surface.setWantsToBeOnActiveScreen(true); }) {
        surface.setWantsToBeOnActiveScreen(true);
    } else {
        surface.setScreenConfiguration(Surface::ScreenFromCompositor);
    }
}

LayerSurface *existing(const QWidget &window)
{
    return window.findChild<LayerSurface *>({}, Qt::FindDirectChildrenOnly);
}
} // namespace

LayerSurface &LayerSurface::of(QWidget &window)
{
    LayerSurface *const surface = existing(window);
    return surface ? *surface : *new LayerSurface(window);
}

LayerSurface::LayerSurface(QWidget &window)
    : QObject(&window)
    , m_window(window)
    , m_surface(layerShellWindow(window))
{
    m_surface.setScope(QStringLiteral("tovla"));
    m_surface.setLayer(Window::LayerOverlay);
    m_surface.setKeyboardInteractivity(Window::KeyboardInteractivityNone);
    // Distances are from the edges of the screen, not from those of panels.
    m_surface.setExclusiveZone(-1);
    window.windowHandle()->installEventFilter(this);
}

LayerSurface::~LayerSurface() = default;

QPoint LayerSurface::placeOnScreen() const
{
    const int centred = (m_window.screen()->geometry().width() - m_window.width()) / 2;
    return {m_left.value_or(centred), m_top};
}

void LayerSurface::place(const QPoint &topLeft)
{
    const QWidget *const parent = m_window.parentWidget();
    if (parent == nullptr || !parent->isVisible()) {
        letCompositorChooseScreen(m_surface);
        setPlace({}, topLeft.y() - m_window.screen()->geometry().top());
    } else if (const LayerSurface *const over = existing(*parent)) {
        m_window.setScreen(parent->screen());
        const QPoint place = over->placeOnScreen() + topLeft - parent->mapToGlobal(QPoint());
        setPlace(place.x(), place.y());
    } else {
        // Only the compositor knows where the parent is. It centres a surface without anchors.
        m_surface.setAnchors(Window::AnchorNone);
    }
}

void LayerSurface::setPlace(std::optional<int> left, int top)
{
    m_left = left;
    m_top = top;
    Window::Anchors anchors = Window::AnchorTop;
    anchors.setFlag(Window::AnchorLeft, left.has_value());
    m_surface.setAnchors(anchors);
    m_surface.setMargins({left.value_or(0), top, 0, 0});
    commit();
}

void LayerSurface::takeKeyboard()
{
    m_wantsKeyboard = true;
    // Not exclusive, so that other programs can be used beside the window.
    m_surface.setKeyboardInteractivity(Window::KeyboardInteractivityOnDemand);
}

void LayerSurface::insistOnKeyboard()
{
    if (m_window.isVisible() && !m_window.isActiveWindow()) {
        m_needsExclusiveness = true;
        m_surface.setKeyboardInteractivity(Window::KeyboardInteractivityExclusive);
        commit();
    }
}

void LayerSurface::lendKeyboard(bool isLent)
{
    // A menu or an alert that belongs to the window keeps it.
    if (m_needsExclusiveness && QApplication::activePopupWidget() == nullptr
        && QApplication::activeModalWidget() == nullptr) {
        m_surface.setKeyboardInteractivity(isLent ? Window::KeyboardInteractivityOnDemand
                                                  : Window::KeyboardInteractivityExclusive);
        commit();
    }
}

void LayerSurface::startMove()
{
    m_dragged.reset();
    m_isHeld = true;
}

void LayerSurface::followPointer(const QPoint &pointer)
{
    const QPoint way = pointer - m_pressed;
    if (!m_isHeld || (!m_dragged && way.manhattanLength() < QApplication::startDragDistance())) {
        return;
    }
    if (!m_dragged) {
        m_dragged = std::make_unique<DraggedPicture>(m_window);
    }
    const QPoint place = placeOnScreen() + way;
    of(*m_dragged).setPlace(place.x(), place.y());
    if (!m_dragged->isVisible()) {
        m_dragged->replaceWindow();
    }
}

void LayerSurface::letGo()
{
    m_isHeld = false;
    if (m_dragged) {
        const QPoint place = of(*m_dragged).placeOnScreen();
        setPlace(place.x(), place.y());
        m_dragged->showWindow();
        afterNextFrame(m_window, *this, [this] { m_dragged.reset(); });
    }
}

bool LayerSurface::eventFilter(QObject *, QEvent *event)
{
    switch (event->type()) {
    case QEvent::Expose:
        if (m_window.windowHandle()->isExposed() && std::exchange(m_wantsKeyboard, false)) {
            // The toolkit hands on what it has read only after the first round trip.
            afterNextFrame(m_window, *this,
                           [this] { afterRoundTrip(*this, [this] { insistOnKeyboard(); }); });
        }
        break;
    case QEvent::MouseButtonPress:
        m_pressed = static_cast<QMouseEvent *>(event)->position().toPoint();
        break;
    case QEvent::MouseMove:
        followPointer(static_cast<QMouseEvent *>(event)->position().toPoint());
        break;
    case QEvent::MouseButtonRelease:
        letGo();
        break;
    case QEvent::Hide:
        m_isHeld = false;
        m_dragged.reset();
        break;
    case QEvent::Enter:
    case QEvent::Leave:
        lendKeyboard(event->type() == QEvent::Leave);
        break;
    default:
        break;
    }
    return false;
}

void LayerSurface::commit()
{
    m_window.update();
}
