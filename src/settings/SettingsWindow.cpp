// SPDX-License-Identifier: MIT
#include "settings/SettingsWindow.h"

#include "core/AppState.h"
#include "core/StateObserver.h"
#include "look/ApplicationIcon.h"
#include "look/Screens.h"
#include "settings/SettingsView.h"

#include <QShortcut>
#include <QVBoxLayout>

SettingsWindow::SettingsWindow(AppState &state)
    : QWidget(nullptr,
              Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint
                  | Qt::WindowCloseButtonHint)
    , m_state(state)
    , m_view(new SettingsView(state, this))
{
    setWindowTitle(tr("Tovla Settings"));
    setWindowIcon(applicationIcon());
    auto *const layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addWidget(m_view);

    new StateObserver(state, this, [this] { updateLook(); });
    connect(state.desktop().appearance.get(), &Appearance::changed, this,
            &SettingsWindow::updateLook);
    connect(new QShortcut(QKeySequence::Close, this), &QShortcut::activated, this, &QWidget::close);
    updateLook();
    adjustSize();
    move(centredOnScreenWithPointer(size()));
}

void SettingsWindow::updateLook()
{
    const Look current = look(m_state.theme(), *m_state.desktop().appearance);
    setPalette(current.palette());
    m_view->setLook(current);
}
