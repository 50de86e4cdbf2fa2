// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QPixmap>
#include <QSize>
#include <QString>

/// A symbol of ours, for example "folder.fill", in one colour and sharp at @p devicePixelRatio.
/// Null if there is no symbol with that name.
[[nodiscard]] QPixmap symbol(const QString &name, const QSize &size, const QColor &color,
                             qreal devicePixelRatio);
