// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessible>

#include <functional>

class QWidget;

/// Reports widgets to assistive technology where the toolkit reports too little or too much.
namespace Accessible
{
/// Must be called before a screen reader can have seen @p widget, because this gives it a new
/// identity.
void setRole(QWidget &widget, QAccessible::Role role);

/// For a widget with an accessible interface of its own. Like setRole(), must be called early.
void setFactory(QWidget &widget, QAccessible::InterfaceFactory factory);

/// For widgets that are purely visual.
void hide(QWidget &widget);

/// Sets what a screen reader says after the name of @p widget when it gets focus. A change is not
/// spoken.
void describe(QWidget &widget, const QString &description);

/// Runs @p action without reporting any event to screen readers. Used to create windows, for
/// example: screen readers would otherwise query and remember half-built ones.
void quietly(const std::function<void()> &action);

/// Has screen readers speak @p text now, wherever focus is. @p window must be the active one.
void announce(QWidget &window, const QString &text);
} // namespace Accessible
