// SPDX-License-Identifier: MIT
#include "prompt/PromptWindow.h"

#include "look/Accessible.h"
#include "look/Screens.h"
#include "look/Squircle.h"
#include "prompt/TitleStrip.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QInputMethod>
#include <QPainter>
#include <QScreen>
#include <QWindow>

#include <chrono>

namespace
{
using Behind = PromptGlassBackground::Behind;

constexpr auto heightAnimationTime = std::chrono::milliseconds(120);
// How far the shadow (12 down, blur 36) can be seen beyond each edge.
constexpr QMargins shadowMargins{54, 42, 54, 66};

Behind behindWindows(const Compositor &compositor)
{
    if (!compositor.isRunning()) {
        return Behind::Opaque;
    }
    return compositor.blursBehind() ? Behind::Blurred : Behind::Clear;
}

/// Rows that stay inside the rounded corners: the whole rectangle would blur beyond them.
QRegion insideCorners(const QRect &frame)
{
    const QPainterPath shape = squirclePath(frame, PromptGlassBackground::cornerRadius);
    return {shape.toFillPolygon().toPolygon()};
}
} // namespace

PromptWindow::PromptWindow(const QDateTime &openedAt, std::optional<ColorScheme> forcedScheme,
                           const Desktop &desktop, PromptCallbacks callbacks)
    : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint)
    , m_forcedScheme(forcedScheme)
    , m_desktop(desktop)
    , m_background(look(*desktop.appearance, forcedScheme).scheme)
{
    Accessible::setRole(*this, QAccessible::Dialog);
    setAttribute(Qt::WA_TranslucentBackground);
    const QString title = openedAt.toLocalTime().toString(QStringLiteral("HH:mm"));
    setWindowTitle(title);
    createContent(title, std::move(callbacks));
    followDesktop();
    updateBackdrop();
    setFrameHeight(TitleStrip::height + m_view->sizeHint().height());
    centreOnScreenWithPointer();
    // Queued behind the editor's first measurement, which tells the height to open at.
    QMetaObject::invokeMethod(this, &PromptWindow::settle, Qt::QueuedConnection);
}

void PromptWindow::createContent(const QString &title, PromptCallbacks callbacks)
{
    const Look initial = look(*m_desktop.appearance, m_forcedScheme);
    callbacks.onHeightChange = [this] { scheduleFit(); };
    m_view = new PromptView(std::move(callbacks), initial, this);
    m_titleStrip = new TitleStrip(title, initial, this);
    m_view->setDescription(m_titleStrip->hint());
    setFocusProxy(m_view);
    connect(m_titleStrip, &TitleStrip::closeRequested, this, &QWidget::close);
}

void PromptWindow::followDesktop()
{
    connect(m_desktop.compositor.get(), &Compositor::changed, this, &PromptWindow::updateBackdrop);
    connect(m_desktop.appearance.get(), &Appearance::changed, this, &PromptWindow::updateLook);
    connect(qGuiApp, &QGuiApplication::screenRemoved, this, &PromptWindow::followScreens,
            Qt::QueuedConnection);
    for (const QScreen *const screen : QGuiApplication::screens()) {
        connect(screen, &QScreen::geometryChanged, this, &PromptWindow::followScreens,
                Qt::QueuedConnection);
    }
    m_heightAnimation.setDuration(static_cast<int>(heightAnimationTime.count()));
    m_heightAnimation.setEasingCurve(QEasingCurve::OutCubic);
    connect(&m_heightAnimation, &QVariantAnimation::valueChanged, this,
            [this](const QVariant &height) { setFrameHeight(height.toInt()); });
}

void PromptWindow::centreOnScreenWithPointer()
{
    const QRect available = availableAreaWithPointer();
    // On a screen that is too small the strip, which moves the card and begins with the close
    // button, still has to be on it.
    const int freeWidth = qMax(0, available.width() - PromptView::width);
    const int freeHeight = qMax(0, available.height() - frameHeight());
    const QPoint frameTopLeft = available.topLeft() + QPoint(freeWidth / 2, freeHeight / 3);
    m_place = frameTopLeft - QPoint(m_shadow.left(), m_shadow.top());
    move(m_place);
}

void PromptWindow::changeScreen()
{
    // While X11 maps the window the toolkit may take it to be on another screen: it is not to go
    // there, but what was announced meanwhile had that screen's scale.
    QMetaObject::invokeMethod(this,
                              windowHandle()->isExposed() ? &PromptWindow::followScreens
                                                          : &PromptWindow::announceShape,
                              Qt::QueuedConnection);
}

void PromptWindow::followScreens()
{
    // From a screen to one of another scale the toolkit lets a window keep its size in pixels. The
    // centre, which decides on which screen the window is, stays, lest it goes back and forth.
    if (size() != minimumSize()) {
        QRect place({}, minimumSize());
        place.moveCenter(geometry().center());
        setGeometry(place);
    }
    // Some window managers leave a window where there is no screen any more.
    const QRect strip(mapToGlobal(frame().topLeft()), QSize(PromptView::width, TitleStrip::height));
    if (QGuiApplication::screenAt(strip.center()) == nullptr) {
        centreOnScreenWithPointer();
    }
    announceShape();
}

QRect PromptWindow::frame() const
{
    return rect().marginsRemoved(m_shadow);
}

int PromptWindow::frameHeight() const
{
    return frame().height();
}

void PromptWindow::setFrameHeight(int height)
{
    setFixedSize(QSize(PromptView::width, height).grownBy(m_shadow));
}

void PromptWindow::settle()
{
    // While X11 maps the window the toolkit may take it to be at the corner of the screen, and
    // would send it there with its new size.
    move(m_place);
    fit();
    m_isSettled = true;
}

void PromptWindow::scheduleFit()
{
    QMetaObject::invokeMethod(this, &PromptWindow::fit, Qt::QueuedConnection);
}

void PromptWindow::fit()
{
    const int height = TitleStrip::height + m_view->sizeHint().height();
    m_heightAnimation.stop();
    if (height == frameHeight()) {
        return;
    }
    if (!m_isSettled || m_desktop.appearance->wantsReducedMotion()) {
        setFrameHeight(height);
        return;
    }
    m_heightAnimation.setStartValue(frameHeight());
    m_heightAnimation.setEndValue(height);
    m_heightAnimation.start();
}

void PromptWindow::updateBackdrop()
{
    const QMargins before = m_shadow;
    const int height = frameHeight();
    m_behind = behindWindows(*m_desktop.compositor);
    m_shadow = m_behind == Behind::Opaque ? QMargins() : shadowMargins;
    if (m_view->size().isValid() && before != m_shadow) {
        move(pos() + QPoint(before.left() - m_shadow.left(), before.top() - m_shadow.top()));
        setFrameHeight(height);
    }
    announceShape();
    update();
}

void PromptWindow::updateLook()
{
    const Look current = look(*m_desktop.appearance, m_forcedScheme);
    m_background = PromptGlassBackground(current.scheme);
    m_view->setLook(current);
    m_titleStrip->setLook(current);
    update();
}

void PromptWindow::announceShape()
{
    if (!testAttribute(Qt::WA_WState_Created)) {
        return;
    }
    m_desktop.windows->setShadow(*this, m_shadow);
    m_desktop.windows->setBlurBehind(
        *this, m_behind == Behind::Blurred ? insideCorners(frame()) : QRegion());
}

bool PromptWindow::event(QEvent *event)
{
    const bool isHandled = QWidget::event(event);
    if (event->type() == QEvent::WinIdChange && windowHandle()) {
        connect(windowHandle(), &QWindow::screenChanged, this, &PromptWindow::changeScreen,
                Qt::UniqueConnection);
        announceShape();
    }
    return isHandled;
}

void PromptWindow::closeEvent(QCloseEvent *event)
{
    m_heightAnimation.stop();
    QGuiApplication::inputMethod()->reset();
    event->accept();
}

void PromptWindow::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton && windowHandle()) {
        windowHandle()->startSystemMove();
    }
}

void PromptWindow::moveEvent(QMoveEvent *)
{
    m_view->placeDidChange();
}

void PromptWindow::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    m_background.paint(painter, frame(), m_behind);
}

void PromptWindow::resizeEvent(QResizeEvent *)
{
    const QRect inside = frame();
    m_titleStrip->setGeometry(inside.x(), inside.y(), inside.width(), TitleStrip::height);
    m_view->setGeometry(inside.adjusted(0, TitleStrip::height, 0, 0));
    announceShape();
}
