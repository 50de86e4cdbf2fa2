// SPDX-License-Identifier: MIT
#include "settings/SettingRow.h"

#include "look/Accessible.h"
#include "look/Fonts.h"
#include "look/Labels.h"
#include "look/OverhangItem.h"
#include "settings/IconTile.h"

#include <QHBoxLayout>

namespace
{
constexpr int rowPadding = 14;
constexpr int tileToTexts = 14;
constexpr int tileLowering = 1;
constexpr int textsToControl = 16;
constexpr int labelToDetail = 2;
} // namespace

SettingRow::SettingRow(const QString &icon, const Tint &tint, const QString &label,
                       const QString &detail, QWidget *control, QWidget *parent)
    : QWidget(parent)
    , m_tile(new IconTile(icon, tint, this))
{
    Accessible::setRole(*this, QAccessible::Grouping);
    setAccessibleName(label);
    setAccessibleDescription(detail);
    control->setParent(this);
    const QMargins overhang = control->contentsMargins();
    setContentsMargins(overhang.left(), 0, overhang.right(), 0);
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

void SettingRow::setColorScheme(ColorScheme scheme)
{
    m_tile->setColorScheme(scheme);
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
