// SPDX-License-Identifier: MIT
#include "settings/SettingsWindow.h"

#include "core/AppState.h"
#include "core/StateObserver.h"
#include "settings/SettingsView.h"

#include <QVBoxLayout>

// Programs find the window by its title, in every language.
SettingsWindow::SettingsWindow(AppState &state)
    : PanelWindow(QStringLiteral("Tovla Settings"), QAccessible::Window)
    , m_state(state)
    , m_view(new SettingsView(state, this))
{
    auto *const layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addWidget(m_view);
    styleControls();

    new StateObserver(state, this, [this] { updateLook(); });
    connect(state.desktop().appearance.get(), &Appearance::changed, this,
            &SettingsWindow::updateLook);
    updateLook();
    placeOnScreenWithPointer(*state.desktop().windows);
}

void SettingsWindow::updateLook()
{
    // The theme is for the content; a chooser that opens over it follows the desktop.
    const Appearance &appearance = *m_state.desktop().appearance;
    setPalette(look(appearance).palette());
    m_view->setLook(look(appearance, preferredColorScheme(m_state.theme())));
}
