// SPDX-License-Identifier: MIT
#include "settings/SettingsWindow.h"

#include "core/AppState.h"
#include "core/StateObserver.h"
#include "look/TightScrollArea.h"
#include "settings/SettingsView.h"

#include <QVBoxLayout>

SettingsWindow::SettingsWindow(AppState &state)
    // The title is not translated, because other programs find the window by it.
    : PanelWindow(QStringLiteral("Tovla Settings"), QAccessible::Window)
    , m_state(state)
    , m_view(new SettingsView(state, this))
    , m_area(new TightScrollArea(m_view, this))
{
    auto *const layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addWidget(m_area);
    styleControls();

    new StateObserver(state, this, [this] { updateLook(); });
    connect(state.desktop().appearance.get(), &Appearance::changed, this,
            &SettingsWindow::updateLook);
    updateLook();
    placeOnScreenWithPointer(*state.desktop().windows);
}

void SettingsWindow::updateLook()
{
    // The theme applies to the content only; a folder chooser that opens over it follows the
    // desktop.
    const Appearance &appearance = *m_state.desktop().appearance;
    setPalette(look(appearance).palette());
    const Look content = look(appearance, preferredColorScheme(m_state.theme()));
    m_area->setPalette(content.palette());
    m_view->setLook(content);
}
