// SPDX-License-Identifier: MIT
#include "settings/ThemeControl.h"

#include "core/AppState.h"
#include "core/StateObserver.h"
#include "look/Accessible.h"
#include "look/Fonts.h"
#include "look/Labels.h"

#include <QRadioButton>
#include <QVBoxLayout>

#include <algorithm>

namespace
{
constexpr int optionSpacing = 6;
} // namespace

ThemeControl::ThemeControl(AppState &state)
    : m_state(state)
{
    Accessible::setRole(*this, QAccessible::Grouping);
    setAccessibleName(tr("Theme"));
    auto *const layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(optionSpacing);
    const QStringList names{tr("Follow System"), tr("Light"), tr("Dark")};
    for (int index = 0; index < names.size(); ++index) {
        auto *const option = new QRadioButton(Labels::withMnemonic(names.at(index)));
        option->setFont(systemFont(FontSizes::body));
        m_options.addButton(option, index);
        layout->addWidget(option, 0, Qt::AlignLeft);
    }
    // Not idClicked: a screen reader toggles a button without a click.
    connect(&m_options, &QButtonGroup::idToggled, this, [this](int index, bool isOn) {
        const ThemePreference chosen = allThemePreferences.at(static_cast<size_t>(index));
        if (isOn && chosen != m_state.theme()) {
            m_state.setTheme(chosen);
        }
    });
    new StateObserver(state, this, [this] { refresh(); });
    refresh();
}

void ThemeControl::refresh()
{
    const auto *const theme = std::ranges::find(allThemePreferences, m_state.theme());
    m_options.button(static_cast<int>(theme - allThemePreferences.begin()))->setChecked(true);
}
