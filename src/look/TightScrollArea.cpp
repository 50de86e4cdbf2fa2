// SPDX-License-Identifier: MIT
#include "look/TightScrollArea.h"

#include <QApplication>
#include <QEvent>
#include <QLayout>
#include <QScreen>

#include <algorithm>

namespace
{
// The height of a title bar that window managers add, with some to spare.
constexpr int titleBarHeight = 48;
} // namespace

TightScrollArea::TightScrollArea(QWidget *content, QWidget *parent)
    : QScrollArea(parent)
{
    setFrameShape(NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus);
    setWidgetResizable(true);
    setWidget(content);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget *, QWidget *now) {
        if (now != nullptr && widget()->isAncestorOf(now)) {
            ensureWidgetVisible(now);
        }
    });
}

QSize TightScrollArea::sizeHint() const
{
    QSize content = widget()->sizeHint().expandedTo(widget()->minimumSize());
    content = content.boundedTo(widget()->maximumSize());
    if (widget()->hasHeightForWidth()) {
        content.setHeight(widget()->heightForWidth(content.width()));
    }
    const int room = screen()->availableGeometry().height() - titleBarHeight;
    return {content.width(), std::min(content.height(), std::max(room, 1))};
}

bool TightScrollArea::event(QEvent *event)
{
    if (event->type() == QEvent::Show || event->type() == QEvent::ScreenChangeInternal) {
        followScreen();
    }
    return QScrollArea::event(event);
}

bool TightScrollArea::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == widget() && event->type() == QEvent::LayoutRequest) {
        updateGeometry();
        // At once: otherwise the content would be too high for a moment and show a scroll bar.
        parentWidget()->layout()->activate();
    }
    return QScrollArea::eventFilter(watched, event);
}

void TightScrollArea::followScreen()
{
    disconnect(m_followed);
    m_followed = connect(screen(), &QScreen::availableGeometryChanged, this,
                         &TightScrollArea::updateGeometry);
    updateGeometry();
}
