// SPDX-License-Identifier: MIT
#include "settings/SoundControl.h"

#include "core/AppState.h"
#include "core/StateObserver.h"
#include "look/ControlStyle.h"
#include "look/Fonts.h"
#include "look/Labels.h"
#include "look/Look.h"
#include "look/OverhangItem.h"
#include "look/Symbol.h"
#include "settings/PopUp.h"

#include <QAbstractItemView>
#include <QHBoxLayout>
#include <QPushButton>

namespace
{
constexpr int namesWidth = 160;
constexpr int spacing = 12;
constexpr int symbolSide = 12;
} // namespace

SoundControl::SoundControl(AppState &state)
    : m_state(state)
    , m_names(new PopUp(tr("Sound"), this))
    , m_preview(new QPushButton(Labels::withMnemonic(tr("Preview")), this))
{
    m_names->setFont(systemFont(FontSizes::body));
    m_names->setFixedSize(namesWidth + 2 * ControlStyle::faceMargin, ControlStyle::outerHeight);
    m_names->setFocusPolicy(Qt::StrongFocus);
    m_names->addItems(AppState::availableSounds());
    m_names->setMaxVisibleItems(static_cast<int>(AppState::availableSounds().size()));
    connect(m_names, &QComboBox::textActivated, this,
            [this](const QString &name) { m_state.setSoundName(name); });
    m_preview->setFont(systemFont(FontSizes::body));
    m_preview->setIconSize({symbolSide, symbolSide});
    connect(m_preview, &QPushButton::clicked, &state, &AppState::playSelectedSound);

    setContentsMargins(ControlStyle::overhang);
    auto *const layout = new QHBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(spacing);
    layout->addItem(new OverhangItem(m_names, ControlStyle::overhang));
    layout->addItem(new OverhangItem(m_preview, ControlStyle::overhang));
    layout->addStretch();
    new StateObserver(state, this, [this] { refresh(); });
    refresh();
}

void SoundControl::setLook(const Look &look)
{
    m_preview->setIcon(symbol(QStringLiteral("play.fill"), m_preview->iconSize(),
                              look.palette().color(QPalette::ButtonText), devicePixelRatioF()));
    QPalette palette = look.palette();
    palette.setColor(QPalette::Base, look.controlFace);
    palette.setColor(QPalette::Window, look.controlFace);
    m_names->view()->window()->setPalette(palette);
    m_names->view()->setPalette(palette);
}

void SoundControl::refresh()
{
    m_names->setCurrentText(m_state.soundName());
}
