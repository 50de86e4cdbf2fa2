// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QPixmap>
#include <QSize>
#include <QString>

/// Our drawing of a symbol ("folder.fill"), in one colour, sharp at @p devicePixelRatio. Null when
/// there is no drawing of that name.
[[nodiscard]] QPixmap symbol(const QString &name, const QSize &size, const QColor &color,
                             qreal devicePixelRatio);
