// SPDX-License-Identifier: MIT
#include "look/Labels.h"

#include "look/ControlStyle.h"
#include "look/Fonts.h"
#include "look/Look.h"

#include <QGuiApplication>
#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>
#include <QtMath>

#include <utility>

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

// QLabel's would lay the text out as paragraphs, which takes several times longer.
QSize ElidedLabel::sizeHint() const
{
    const QFontMetricsF metrics(font());
    return {qCeil(metrics.horizontalAdvance(text().simplified())), qCeil(metrics.height())};
}

QSize ElidedLabel::minimumSizeHint() const
{
    return {0, qCeil(QFontMetricsF(font()).height())};
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
    for (const auto role : {Look::menuFaceRole, Look::rimShadeRole, Look::rimLightRole}) {
        colors.setColor(role, palette().color(role));
    }
    colors.setColor(QPalette::ToolTipText, palette().color(QPalette::WindowText));
    QToolTip::setPalette(colors);
    QToolTip::setFont(systemFont(FontSizes::subheadline));
    // Tooltips interpret text that looks like markup as markup.
    QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(),
                       QStringLiteral("<span>%1</span>").arg(text().toHtmlEscaped()), this);
    dressUpTooltip();
    return true;
}

void ElidedLabel::dressUpTooltip()
{
    // The toolkit makes it a child of the widget that it is about.
    auto *const tooltip = findChild<QLabel *>();
    if (tooltip != nullptr && !tooltip->testAttribute(Qt::WA_SetStyle)) {
        auto *const style = new ControlStyle;
        style->setParent(tooltip);
        tooltip->setStyle(style);
    }
}

void ElidedLabel::layOut()
{
    Basis basis{.text = text(), .font = font(), .width = width()};
    if (basis == m_basis) {
        return;
    }
    m_basis = std::move(basis);
    setShown(text().simplified());
    if (m_layout.lineAt(0).naturalTextWidth() > width()) {
        setShown(shownText());
    }
}

void ElidedLabel::setShown(const QString &text)
{
    QTextOption option;
    option.setWrapMode(QTextOption::NoWrap);
    // The text has its own direction: a path starts with its slash where the window is mirrored
    // too.
    option.setTextDirection(Qt::LayoutDirectionAuto);
    option.setAlignment(alignment());
    m_layout.setCacheEnabled(true);
    m_layout.setText(text);
    m_layout.setFont(font());
    m_layout.setTextOption(option);
    m_layout.beginLayout();
    m_layout.createLine().setLineWidth(width());
    m_layout.endLayout();
}

void ElidedLabel::paintEvent(QPaintEvent *)
{
    layOut();
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    const QTextLine line = m_layout.lineAt(0);
    m_layout.draw(&painter, QPointF(0, (height() - line.ascent() - line.descent()) / 2));
}
