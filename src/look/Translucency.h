// SPDX-License-Identifier: MIT
#pragma once

class QPainter;
class QRect;

/// Windows that let others show through.
namespace Translucency
{
/// Makes @p area transparent, whatever was painted before. The toolkit should do so before each
/// painting, but since Qt 6.8 it does not always on Wayland.
void clear(QPainter &painter, const QRect &area);
} // namespace Translucency
