// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// The desktop's portals on the session bus (XDG Desktop Portal).
namespace Portal
{
inline const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
inline const QString path = QStringLiteral("/org/freedesktop/portal/desktop");
} // namespace Portal
