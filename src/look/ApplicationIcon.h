// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>

/// The icon by which the launcher shows the program, too; drawn at its first use, since that loads
/// the toolkit's SVG plugin.
[[nodiscard]] const QIcon &applicationIcon();
