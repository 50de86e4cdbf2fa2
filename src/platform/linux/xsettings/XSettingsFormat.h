// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QHash>
#include <QVariant>

/// The settings that an XSETTINGS manager publishes, by their names: numbers and texts; colors are
/// left out (freedesktop.org, XSETTINGS 0.5). Empty if @p property is damaged.
[[nodiscard]] QHash<QByteArray, QVariant> xSettingsIn(const QByteArray &property);
