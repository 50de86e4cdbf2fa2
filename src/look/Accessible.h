// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessible>

class QWidget;

/// What a screen reader is told of widgets that the toolkit has no opinion of.
namespace Accessible
{
/// To be called before anything else is told of @p widget, which the toolkit then remembers as a
/// mere filler.
void setRole(QWidget &widget, QAccessible::Role role);

/// For what is there to be seen only.
void hide(QWidget &widget);
} // namespace Accessible
