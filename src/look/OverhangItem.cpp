// SPDX-License-Identifier: MIT
#include "look/OverhangItem.h"

#include <QStyle>
#include <QWidget>

OverhangItem::OverhangItem(QWidget *widget, const QMargins &overhang)
    : QWidgetItem(widget)
    , m_overhang(overhang)
{
}

QSize OverhangItem::withoutOverhang(const QSize &size) const
{
    return isEmpty() ? size : size.shrunkBy(m_overhang).expandedTo({0, 0});
}

int OverhangItem::heightWithoutOverhang(int height) const
{
    return height < 0 ? height : height - m_overhang.top() - m_overhang.bottom();
}

QSize OverhangItem::sizeHint() const
{
    return withoutOverhang(QWidgetItem::sizeHint());
}

QSize OverhangItem::minimumSize() const
{
    return withoutOverhang(QWidgetItem::minimumSize());
}

QSize OverhangItem::maximumSize() const
{
    return withoutOverhang(QWidgetItem::maximumSize());
}

int OverhangItem::heightForWidth(int width) const
{
    return heightWithoutOverhang(
        QWidgetItem::heightForWidth(width + m_overhang.left() + m_overhang.right()));
}

int OverhangItem::minimumHeightForWidth(int width) const
{
    return heightWithoutOverhang(
        QWidgetItem::minimumHeightForWidth(width + m_overhang.left() + m_overhang.right()));
}

void OverhangItem::setGeometry(const QRect &place)
{
    const QSize inside = place.size().boundedTo(maximumSize());
    const QRect rect = QStyle::alignedRect(widget()->layoutDirection(),
                                           Qt::AlignLeft | Qt::AlignVCenter, inside, place);
    widget()->setGeometry(rect.marginsAdded(m_overhang));
}

QRect OverhangItem::geometry() const
{
    return isEmpty() ? QRect() : widget()->geometry().marginsRemoved(m_overhang);
}
