// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// Menu labels whose every character is shown, none taken for the mark of a mnemonic.
namespace MenuText
{
/// For a menu that the toolkit draws.
[[nodiscard]] QString drawn(const QString &text);

/// For a menu that the toolkit describes to the desktop (com.canonical.dbusmenu). On its way there
/// Qt, as of 6.4, turns the first "&" into "_" and leaves every other character as it is, though
/// the desktop takes a single "_" for a mark.
[[nodiscard]] QString exported(const QString &text);
} // namespace MenuText
