// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessible>

#include <functional>

class QWidget;

/// What assistive technology is told of widgets about which the toolkit says too little.
namespace Accessible
{
/// Must be called before a screen reader can know @p widget, which gets a new identity from this.
void setRole(QWidget &widget, QAccessible::Role role);

/// For a widget with an accessible interface of its own. Like setRole(), must be called early.
void setFactory(QWidget &widget, QAccessible::InterfaceFactory factory);

/// For widgets that are purely visual.
void hide(QWidget &widget);

/// Sets what a screen reader says of @p widget after its name when it gets the focus. A change is
/// not spoken.
void describe(QWidget &widget, const QString &description);

/// Does something of which a screen reader is not told, such as the making of a window: asked about
/// what was half made, it would remember the answers.
void quietly(const std::function<void()> &action);

/// Has @p text spoken at once, wherever the focus is. @p window must be the active one.
void announce(QWidget &window, const QString &text);
} // namespace Accessible
