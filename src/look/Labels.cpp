// SPDX-License-Identifier: MIT
#include "look/Labels.h"

#include "look/Fonts.h"
#include "look/Look.h"

#include <QGuiApplication>
#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

namespace
{
void setUp(QLabel &label, const QFont &font, QPalette::ColorRole role)
{
    label.setTextFormat(Qt::PlainText);
    label.setFont(font);
    label.setForegroundRole(role);
    // At the edge where the window's texts start, whatever script this one is in.
    const Qt::Alignment edge
        = QStyle::visualAlignment(QGuiApplication::layoutDirection(), Qt::AlignLeft);
    label.setAlignment(edge | Qt::AlignAbsolute | Qt::AlignVCenter);
}
} // namespace

QLabel *Labels::plain(const QString &text, const QFont &font, QPalette::ColorRole role)
{
    auto *const label = new QLabel(text);
    setUp(*label, font, role);
    return label;
}

QString Labels::withMnemonic(const QString &text)
{
    return u'&' + text;
}

ElidedLabel::ElidedLabel(const QFont &font, QPalette::ColorRole role, QWidget *parent)
    : QLabel(parent)
{
    setUp(*this, font, role);
}

QSize ElidedLabel::minimumSizeHint() const
{
    return {0, QLabel::minimumSizeHint().height()};
}

QString ElidedLabel::shownText() const
{
    // A line break in a file name must not hide the rest of the path.
    return fontMetrics().elidedText(text().simplified(), Qt::ElideMiddle, width());
}

bool ElidedLabel::isElided() const
{
    return shownText() != text().simplified();
}

bool ElidedLabel::event(QEvent *event)
{
    if (event->type() != QEvent::ToolTip || !isElided()) {
        return QLabel::event(event);
    }
    QPalette colors; // tooltips do not inherit a label's
    colors.setColor(QPalette::ToolTipBase, palette().color(Look::menuFaceRole));
    colors.setColor(QPalette::ToolTipText, palette().color(QPalette::WindowText));
    QToolTip::setPalette(colors);
    QToolTip::setFont(systemFont(FontSizes::subheadline));
    // Tooltips interpret text that looks like markup as markup.
    QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(),
                       QStringLiteral("<span>%1</span>").arg(text().toHtmlEscaped()), this);
    return true;
}

void ElidedLabel::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    // The text has its own direction: a path starts with its slash where the window is mirrored
    // too.
    painter.setLayoutDirection(Qt::LayoutDirectionAuto);
    painter.drawText(rect(), static_cast<int>(alignment()) | Qt::TextSingleLine, shownText());
}
