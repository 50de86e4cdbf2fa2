// SPDX-License-Identifier: MIT
#include "prompt/PromptWindow.h"

#include "look/Accessible.h"
#include "look/Look.h"
#include "look/Screens.h"
#include "prompt/TitleStrip.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QInputMethod>

#include <chrono>

namespace
{
constexpr auto heightAnimationTime = std::chrono::milliseconds(120);
} // namespace

PromptWindow::PromptWindow(const QDateTime &openedAt, std::optional<ColorScheme> forcedScheme,
                           const Desktop &desktop, PromptCallbacks callbacks)
    : FloatingWindow(desktop, PromptGlassBackground::cornerRadius, Qt::Tool)
    , m_forcedScheme(forcedScheme)
    , m_look(look(*desktop.appearance, forcedScheme))
{
    Accessible::setRole(*this, QAccessible::Dialog);
    const QString title = openedAt.toLocalTime().toString(QStringLiteral("HH:mm"));
    setWindowTitle(title);
    createContent(title, std::move(callbacks));
    connect(desktop.appearance.get(), &Appearance::changed, this, &PromptWindow::updateLook);
    m_heightAnimation.setDuration(static_cast<int>(heightAnimationTime.count()));
    m_heightAnimation.setEasingCurve(QEasingCurve::OutCubic);
    connect(&m_heightAnimation, &QVariantAnimation::valueChanged, this,
            [this](const QVariant &height) { setFrameHeight(height.toInt()); });
    setFrameHeight(fittingHeight());
    moveToOpeningPlace();
    // Queued behind the editor's first measurement, which determines the initial height.
    QMetaObject::invokeMethod(this, &PromptWindow::settle, Qt::QueuedConnection);
}

void PromptWindow::createContent(const QString &title, PromptCallbacks callbacks)
{
    m_view = new PromptView(
        std::move(callbacks), [this] { scheduleFit(); }, m_look, this);
    m_view->serveMenu(*desktop().compositor);
    m_titleStrip = new TitleStrip(title, m_look, this);
    m_view->setDescription(TitleStrip::spokenHint());
    setFocusProxy(m_view);
    connect(m_view, &PromptView::noteChanged, this, &PromptWindow::holdSession);
    connect(m_titleStrip, &TitleStrip::closeRequested, this, &QWidget::close);
}

QPoint PromptWindow::openingPlace(const QSize &size) const
{
    return placeIn(availableAreaWithPointer(), size, 1.0 / 3);
}

void PromptWindow::holdSession() const
{
    if (m_view->isBlank()) {
        desktop().session->release();
    } else {
        desktop().session->hold(tr("A note is being written"));
    }
}

void PromptWindow::settle()
{
    fit();
    m_isSettled = true;
}

void PromptWindow::scheduleFit()
{
    QMetaObject::invokeMethod(this, &PromptWindow::fit, Qt::QueuedConnection);
}

void PromptWindow::fit()
{
    m_heightAnimation.stop();
    if (fittingHeight() == frame().height()) {
        return;
    }
    if (!m_isSettled || desktop().appearance->wantsReducedMotion()) {
        setFrameHeight(fittingHeight());
        return;
    }
    m_heightAnimation.setStartValue(frame().height());
    m_heightAnimation.setEndValue(fittingHeight());
    m_heightAnimation.start();
}

int PromptWindow::fittingHeight() const
{
    return TitleStrip::height + m_view->sizeHint().height();
}

void PromptWindow::setFrameHeight(int height)
{
    setFrameSize({PromptView::width, height});
}

void PromptWindow::updateLook()
{
    m_look = look(*desktop().appearance, m_forcedScheme);
    m_view->setLook(m_look);
    m_titleStrip->setLook(m_look);
    update();
}

void PromptWindow::closeEvent(QCloseEvent *event)
{
    m_heightAnimation.stop();
    // Discards the text being composed, like the rest of a note that was not saved.
    QGuiApplication::inputMethod()->reset();
    desktop().session->release();
    event->accept();
}

void PromptWindow::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton) {
        desktop().windows->startMove(*this);
    }
}

void PromptWindow::moveEvent(QMoveEvent *)
{
    m_view->placeDidChange();
}

void PromptWindow::paintEvent(QPaintEvent *)
{
    paintBackdrop(PromptGlassBackground(m_look.scheme).color(behind()), m_look);
}

void PromptWindow::resizeEvent(QResizeEvent *event)
{
    FloatingWindow::resizeEvent(event);
    const QRect inside = frame();
    m_titleStrip->setGeometry(inside.x(), inside.y(), inside.width(), TitleStrip::height);
    m_view->setGeometry(inside.adjusted(0, TitleStrip::height, 0, 0));
}
