// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>

/// Whether the session says that it is the desktop of this name (XDG_CURRENT_DESKTOP).
[[nodiscard]] bool isDesktop(QStringView name);
