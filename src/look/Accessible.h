// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessible>

class QWidget;

/// What a screen reader is told of widgets that the toolkit has no opinion of.
namespace Accessible
{
/// To be called before a screen reader can have asked for @p widget, as it is another one to it
/// then.
void setRole(QWidget &widget, QAccessible::Role role);

/// For what is there to be seen only.
void hide(QWidget &widget);
} // namespace Accessible
