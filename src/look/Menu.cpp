// SPDX-License-Identifier: MIT
#include "look/Menu.h"

#include "look/ControlStyle.h"
#include "look/Fonts.h"
#include "platform/Compositor.h"

Menu::Menu(const Compositor &compositor, QWidget *parent)
    : QMenu(parent)
    , m_compositor(compositor)
{
    setAttribute(Qt::WA_TranslucentBackground, compositor.isRunning());
    connect(&compositor, &Compositor::changed, this, &Menu::followCompositor);
    connect(this, &QMenu::aboutToShow, this, &Menu::dressUp);
}

Menu::~Menu() = default;

void Menu::followCompositor()
{
    close();
    // Translucency applies only to windows that are created afterwards.
    destroy();
    setAttribute(Qt::WA_TranslucentBackground, m_compositor.isRunning());
}

void Menu::dressUp()
{
    if (!testAttribute(Qt::WA_SetStyle)) {
        auto *const style = new ControlStyle;
        style->setParent(this);
        setStyle(style);
        setFont(systemFont(FontSizes::body));
    }
}
