// SPDX-License-Identifier: MIT
#include "settings/IconTile.h"

#include "look/Accessible.h"
#include "look/Squircle.h"
#include "look/Symbol.h"

#include <QPainter>

namespace
{
constexpr int cornerRadius = 8;
constexpr int symbolSide = 20;
// The tile is lit from above.
constexpr double whiteAtTheTop = 0.25;
} // namespace

IconTile::IconTile(QString icon, const Tint &tint, QWidget *parent)
    : QWidget(parent)
    , m_icon(std::move(icon))
    , m_tint(tint)
{
    Accessible::hide(*this);
    setFixedSize(side, side);
}

void IconTile::setColorScheme(ColorScheme scheme)
{
    m_scheme = scheme;
    update();
}

void IconTile::paintEvent(QPaintEvent *)
{
    const QColor tint = m_tint.in(m_scheme);
    QLinearGradient gradient(0, 0, 0, side);
    gradient.setColorAt(0, mixed(Qt::white, whiteAtTheTop, tint));
    gradient.setColorAt(1, tint);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(squirclePath(rect(), cornerRadius), gradient);
    constexpr int symbolStart = (side - symbolSide) / 2;
    painter.drawPixmap(
        symbolStart, symbolStart,
        symbol(m_icon, QSize(symbolSide, symbolSide), Qt::white, devicePixelRatioF()));
}
