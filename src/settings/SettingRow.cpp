// SPDX-License-Identifier: MIT
#include "settings/SettingRow.h"

#include "look/Accessible.h"
#include "look/Fonts.h"
#include "look/Labels.h"
#include "look/OverhangItem.h"
#include "look/Squircle.h"
#include "look/Symbol.h"

#include <QHBoxLayout>
#include <QPainter>

namespace
{
constexpr int tileRadius = 8;
constexpr int symbolSide = 20;
constexpr int rowPadding = 14;
constexpr int tileToTexts = 14;
constexpr int tileLowering = 1;
constexpr int textsToControl = 16;
constexpr int labelToDetail = 2;
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
    painter.fillPath(squirclePath(rect(), tileRadius), gradient);
    constexpr int symbolStart = (side - symbolSide) / 2;
    painter.drawPixmap(
        symbolStart, symbolStart,
        symbol(m_icon, QSize(symbolSide, symbolSide), Qt::white, devicePixelRatioF()));
}

SettingRow::SettingRow(const QString &icon, const Tint &tint, const QString &label,
                       const QString &detail, QWidget *control, QWidget *parent)
    : QWidget(parent)
    , m_tile(new IconTile(icon, tint, this))
{
    Accessible::setRole(*this, QAccessible::Grouping);
    setAccessibleName(label);
    setAccessibleDescription(detail);
    control->setParent(this);
    setContentsMargins(0, 0, control->contentsMargins().right(), 0);
    auto *const column = new QVBoxLayout;
    column->setSpacing(textsToControl);
    column->addWidget(createTexts(label, detail));
    column->addItem(new OverhangItem(control, control->contentsMargins()));

    auto *const tileColumn = new QVBoxLayout;
    tileColumn->setContentsMargins(0, tileLowering, 0, 0);
    tileColumn->addWidget(m_tile);
    tileColumn->addStretch();

    auto *const row = new QHBoxLayout(this);
    row->setContentsMargins(0, rowPadding, 0, rowPadding);
    row->setSpacing(tileToTexts);
    row->addLayout(tileColumn);
    row->addLayout(column, 1);
}

QWidget *SettingRow::createTexts(const QString &label, const QString &detail)
{
    auto *const texts = new QWidget(this);
    auto *const layout = new QVBoxLayout(texts);
    layout->setContentsMargins({});
    layout->setSpacing(labelToDetail);
    layout->addWidget(Labels::plain(label, systemFont(FontSizes::headline, QFont::DemiBold),
                                    QPalette::WindowText));
    auto *const explanation
        = Labels::plain(detail, systemFont(FontSizes::detail), Look::secondaryTextRole);
    explanation->setWordWrap(true);
    layout->addWidget(explanation);
    return texts;
}
