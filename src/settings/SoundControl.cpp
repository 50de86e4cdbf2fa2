// SPDX-License-Identifier: MIT
#include "settings/SoundControl.h"

#include "look/ControlStyle.h"
#include "look/Fonts.h"
#include "look/Labels.h"
#include "look/Look.h"
#include "look/OverhangItem.h"
#include "look/Symbol.h"
#include "settings/PopUp.h"

#include <QHBoxLayout>
#include <QPushButton>

namespace
{
constexpr int namesWidth = 160;
constexpr int spacing = 12;
constexpr int symbolSide = 14;
} // namespace

SoundControl::SoundControl(const QStringList &names, const Compositor &compositor)
    : m_names(new PopUp(tr("Sound"), compositor, this))
    , m_preview(new QPushButton(Labels::withMnemonic(tr("Preview")), this))
{
    m_names->setFont(systemFont(FontSizes::body));
    m_names->setFixedSize(namesWidth + 2 * ControlStyle::faceMargin, ControlStyle::outerHeight);
    m_names->setFocusPolicy(Qt::StrongFocus);
    m_names->addItems(names);
    m_names->setMaxVisibleItems(static_cast<int>(names.size()));
    connect(m_names, &QComboBox::textActivated, this, &SoundControl::soundChosen);
    m_preview->setFont(systemFont(FontSizes::body));
    m_preview->setIconSize({symbolSide, symbolSide});
    connect(m_preview, &QPushButton::clicked, this, &SoundControl::previewRequested);

    setContentsMargins(ControlStyle::overhang);
    auto *const layout = new QHBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(spacing);
    layout->addItem(new OverhangItem(m_names, ControlStyle::overhang));
    layout->addItem(new OverhangItem(m_preview, ControlStyle::overhang));
    layout->addStretch();
}

void SoundControl::setLook(const Look &look)
{
    m_preview->setIcon(symbol(QStringLiteral("play.fill"), m_preview->iconSize(),
                              look.palette().color(QPalette::ButtonText), devicePixelRatioF()));
    m_names->setListPalette(look.palette());
}

void SoundControl::showSound(const QString &name)
{
    m_names->setCurrentText(name);
}
