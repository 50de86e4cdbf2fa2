// SPDX-License-Identifier: MIT
#include "look/ApplicationIcon.h"

#include <QImageReader>

namespace
{
QIcon drawn()
{
    QIcon icon;
    // The sizes for title bars and task switchers, and for windows at up to twice the usual scale.
    for (const int side : {16, 24, 32, 48, 64, 128}) {
        QImageReader reader(QStringLiteral(":/icons/org.tovla.Tovla.svg"));
        reader.setScaledSize({side, side});
        icon.addPixmap(QPixmap::fromImageReader(&reader));
    }
    return icon;
}
} // namespace

const QIcon &applicationIcon()
{
    static const QIcon icon = drawn();
    return icon;
}
