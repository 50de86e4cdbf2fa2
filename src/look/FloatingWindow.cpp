// SPDX-License-Identifier: MIT
#include "look/FloatingWindow.h"

#include "look/FloatingShadow.h"
#include "look/Look.h"
#include "look/ScaleFollower.h"
#include "look/Squircle.h"

#include <QEvent>
#include <QGuiApplication>
#include <QPainter>
#include <QPainterPath>
#include <QScreen>
#include <QWindow>

namespace
{
// The height of the frame's upper edge, by which the user drags it and which must be on a screen.
constexpr int edgeHeight = 28;

FloatingWindow::Behind behindWindows(const Compositor &compositor)
{
    if (!compositor.isRunning()) {
        return FloatingWindow::Behind::Opaque;
    }
    return compositor.blursBehind() ? FloatingWindow::Behind::Blurred
                                    : FloatingWindow::Behind::Clear;
}

QMargins shadowMargins(FloatingWindow::Behind behind)
{
    return behind == FloatingWindow::Behind::Opaque ? QMargins() : FloatingShadow::margins;
}
} // namespace

FloatingWindow::FloatingWindow(const Desktop &desktop, qreal cornerRadius, Qt::WindowType type,
                               QWidget *parent)
    : QWidget(parent, type | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint)
    , m_desktop(desktop)
    , m_cornerRadius(cornerRadius)
    , m_behind(behindWindows(*desktop.compositor))
    , m_shadowMargins(shadowMargins(m_behind))
{
    setAttribute(Qt::WA_TranslucentBackground);
    connect(desktop.compositor.get(), &Compositor::changed, this, &FloatingWindow::updateBackdrop);
    connect(qGuiApp, &QGuiApplication::screenRemoved, this, &FloatingWindow::followScreens,
            Qt::QueuedConnection);
    for (const QScreen *const screen : QGuiApplication::screens()) {
        connect(screen, &QScreen::geometryChanged, this, &FloatingWindow::followScreens,
                Qt::QueuedConnection);
    }
    new ScaleFollower(*this, *m_desktop.windows, [this] {
        moveToOpeningPlace();
        announceShape(); // it may be a new window
    });
}

void FloatingWindow::setFrameSize(const QSize &size)
{
    setFixedSize(size.grownBy(m_shadowMargins));
}

void FloatingWindow::moveToOpeningPlace()
{
    m_desktop.windows->place(*this,
                             openingPlace(frame().size())
                                 - QPoint(m_shadowMargins.left(), m_shadowMargins.top()));
}

void FloatingWindow::paintBackdrop(const QColor &face, const Look &look)
{
    QPainter painter(this);
    // Replaces whatever the window showed: there is nothing to blend with, and copying is cheaper.
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    if (m_behind == Behind::Opaque) {
        painter.fillRect(frame(), face);
        painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
        FloatingShadow::paintRim(painter, frame(), look.rim);
    } else {
        painter.fillRect(rect(), Qt::transparent); // at odd scales, the picture may end before it
        FloatingShadow::paint(painter, frame(), m_cornerRadius, face, look);
    }
}

void FloatingWindow::changeScreen()
{
    // While the window is being mapped, it may appear to be on another screen for a moment. It must
    // not move there, but its shape was announced at that screen's scale and must be corrected.
    QMetaObject::invokeMethod(this,
                              windowHandle()->isExposed() ? &FloatingWindow::followScreens
                                                          : &FloatingWindow::announceShape,
                              Qt::QueuedConnection);
}

void FloatingWindow::followScreens()
{
    // When a window moves to a screen of another scale, the toolkit keeps its size in pixels. The
    // centre determines the window's screen; it must stay, or the window could go back and forth.
    if (size() != minimumSize()) {
        QRect place({}, minimumSize());
        place.moveCenter(geometry().center());
        setGeometry(place);
    }
    // Some window managers leave a window where there is no screen any more.
    const QRect edge(mapToGlobal(frame().topLeft()), QSize(frame().width(), edgeHeight));
    if (QGuiApplication::screenAt(edge.center()) == nullptr) {
        moveToOpeningPlace();
    }
    announceShape();
}

void FloatingWindow::updateBackdrop()
{
    const QSize frameSize = frame().size();
    const QMargins before = m_shadowMargins;
    m_behind = behindWindows(*m_desktop.compositor);
    m_shadowMargins = shadowMargins(m_behind);
    if (m_shadowMargins != before) {
        move(pos() + QPoint(before.left(), before.top())
             - QPoint(m_shadowMargins.left(), m_shadowMargins.top()));
        setFrameSize(frameSize);
    }
    announceShape();
    update();
}

void FloatingWindow::announceShape()
{
    if (!testAttribute(Qt::WA_WState_Created)) {
        return;
    }
    m_desktop.windows->setShadow(*this, m_shadowMargins);
    // Only the area inside the round corners, to leave the area outside them unblurred.
    const auto roundFrame = [this] {
        return QRegion(squirclePath(frame(), m_cornerRadius).toFillPolygon().toPolygon());
    };
    m_desktop.windows->setBlurBehind(*this, m_behind == Behind::Blurred ? roundFrame() : QRegion());
}

bool FloatingWindow::event(QEvent *event)
{
    const bool isHandled = QWidget::event(event);
    if (event->type() == QEvent::WinIdChange && windowHandle()) {
        connect(windowHandle(), &QWindow::screenChanged, this, &FloatingWindow::changeScreen,
                Qt::UniqueConnection);
        announceShape();
    }
    return isHandled;
}

void FloatingWindow::resizeEvent(QResizeEvent *)
{
    announceShape();
}
