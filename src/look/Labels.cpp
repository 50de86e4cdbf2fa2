// SPDX-License-Identifier: MIT
#include "look/Labels.h"

#include "look/Fonts.h"
#include "look/Look.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

namespace
{
void setUp(QLabel &label, const QFont &font, QPalette::ColorRole role)
{
    label.setTextFormat(Qt::PlainText);
    label.setFont(font);
    label.setForegroundRole(role);
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
    painter.drawText(rect(), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, shownText());
}
