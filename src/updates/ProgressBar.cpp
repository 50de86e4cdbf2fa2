// SPDX-License-Identifier: MIT
#include "updates/ProgressBar.h"

#include "look/Accessible.h"

#include <QPainter>

#include <chrono>

namespace
{
constexpr int barHeight = 6;
constexpr auto wanderingTime = std::chrono::milliseconds(1600);
// The part of the bar's width that moves back and forth while the duration is unknown.
constexpr double wanderingPart = 0.3;
} // namespace

ProgressBar::ProgressBar(bool isStill, QWidget *parent)
    : QProgressBar(parent)
    , m_isStill(isStill)
{
    setFixedHeight(barHeight);
    setTextVisible(false);
    m_wandering.setStartValue(0.0);
    m_wandering.setEndValue(1.0);
    m_wandering.setDuration(static_cast<int>(wanderingTime.count()));
    m_wandering.setEasingCurve(QEasingCurve::CosineCurve);
    m_wandering.setLoopCount(-1);
    connect(&m_wandering, &QVariantAnimation::valueChanged, this, [this] { update(); });
}

void ProgressBar::setPercentage(std::optional<int> percentage)
{
    constexpr int reportedStep = 10;
    const int before = value();
    const auto show = [&] {
        setRange(0, percentage ? 100 : 0);
        setValue(percentage.value_or(0));
    };
    if (percentage && maximum() > 0 && *percentage / reportedStep == before / reportedStep) {
        Accessible::quietly(show);
    } else {
        show();
    }
    moveOrRest();
}

void ProgressBar::showEvent(QShowEvent *event)
{
    QProgressBar::showEvent(event);
    moveOrRest();
}

void ProgressBar::hideEvent(QHideEvent *event)
{
    QProgressBar::hideEvent(event);
    moveOrRest();
}

void ProgressBar::moveOrRest()
{
    const bool moves = isVisible() && maximum() == 0 && !m_isStill;
    if (moves && m_wandering.state() != QAbstractAnimation::Running) {
        m_wandering.start();
    } else if (!moves) {
        m_wandering.stop();
    }
}

void ProgressBar::paintEvent(QPaintEvent *)
{
    const double radius = height() / 2.0;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    QColor groove = palette().color(QPalette::WindowText);
    groove.setAlphaF(0.12F);
    painter.setBrush(groove);
    painter.drawRoundedRect(rect(), radius, radius);

    QRectF filled = rect();
    if (maximum() > 0) {
        filled.setWidth(width() * value() / double(maximum()));
    } else {
        filled.setWidth(width() * wanderingPart);
        filled.moveLeft(m_wandering.currentValue().toDouble() * (width() - filled.width()));
    }
    painter.setBrush(palette().color(QPalette::Link));
    painter.drawRoundedRect(filled, radius, radius);
}
