// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>

/// The program's icon, as in the launcher. Drawn on first use, because drawing it loads the
/// toolkit's SVG plugin.
[[nodiscard]] const QIcon &applicationIcon();
