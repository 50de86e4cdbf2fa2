// SPDX-License-Identifier: MIT
#include "settings/ThemeControl.h"

#include "look/Accessible.h"
#include "look/ControlStyle.h"
#include "look/Fonts.h"
#include "look/Labels.h"
#include "look/OverhangItem.h"

#include <QRadioButton>
#include <QVBoxLayout>

#include <algorithm>

namespace
{
constexpr int optionSpacing = 8;
} // namespace

ThemeControl::ThemeControl()
{
    Accessible::setRole(*this, QAccessible::Grouping);
    setAccessibleName(tr("Theme"));
    auto *const layout = new QVBoxLayout(this);
    setContentsMargins(ControlStyle::radioOverhang);
    layout->setContentsMargins({});
    layout->setSpacing(optionSpacing);
    // In the order of allThemePreferences.
    const QStringList names{tr("Follow System"), tr("Light"), tr("Dark")};
    for (int index = 0; index < names.size(); ++index) {
        auto *const option = new QRadioButton(Labels::withMnemonic(names.at(index)), this);
        option->setFont(systemFont(FontSizes::body));
        option->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
        option->setFocusPolicy(Qt::ClickFocus);
        m_options.addButton(option, index);
        layout->addItem(new OverhangItem(option, ControlStyle::radioOverhang));
    }
    // Not idClicked: a screen reader toggles a button without a click.
    connect(&m_options, &QButtonGroup::idToggled, this, [this](int index, bool isOn) {
        // The toolkit does this only after one of the buttons has had focus; until then, Tab would
        // go to the first one.
        m_options.button(index)->setFocusPolicy(isOn ? Qt::StrongFocus : Qt::ClickFocus);
        const ThemePreference chosen = allThemePreferences.at(static_cast<size_t>(index));
        if (isOn && chosen != m_theme) {
            m_theme = chosen;
            emit themeChosen(chosen);
        }
    });
}

void ThemeControl::showTheme(ThemePreference theme)
{
    m_theme = theme;
    const auto *const place = std::ranges::find(allThemePreferences, theme);
    m_options.button(static_cast<int>(place - allThemePreferences.begin()))->setChecked(true);
}
