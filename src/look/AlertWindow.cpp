// SPDX-License-Identifier: MIT
#include "look/AlertWindow.h"

#include "look/Accessible.h"
#include "look/ApplicationIcon.h"
#include "look/ControlStyle.h"
#include "look/Fonts.h"
#include "look/Labels.h"
#include "look/Look.h"
#include "look/OverhangItem.h"
#include "look/Screens.h"

#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>
#include <QPushButton>
#include <QVBoxLayout>

namespace
{
constexpr qreal cornerRadius = 14;
constexpr int alertWidth = 300;
constexpr int padding = 20;
constexpr int iconSide = 52;
constexpr int iconToTitle = 10;
constexpr int titleToText = 6;
constexpr int textToButton = 16;
constexpr int buttonHeight = 28;

/// Room for the badge around the icon, to its left and right and below it.
constexpr int iconMargin = 2;

/// A yellow warning sign in the lower right corner of a square with sides of @p side, which it
/// exceeds a little.
void drawBadge(QPainter &painter, qreal side)
{
    constexpr qreal badgeWidth = 20;
    constexpr qreal badgeHeight = 18;
    constexpr qreal beyondRight = 4;
    constexpr qreal beyondBottom = 1;
    const QRectF rect(side - badgeWidth + beyondRight, side - badgeHeight + beyondBottom,
                      badgeWidth, badgeHeight);
    constexpr qreal inset = 2; // the thick pen rounds the corners
    const QPolygonF triangle({QPointF(rect.center().x(), rect.top() + inset),
                              QPointF(rect.right() - inset, rect.bottom() - inset),
                              QPointF(rect.left() + inset, rect.bottom() - inset)});
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Qt::white, 5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolygon(triangle);
    const QColor yellow(0xFFC20A);
    painter.setPen(QPen(yellow, 3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(yellow);
    painter.drawPolygon(triangle);
    // The exclamation mark.
    constexpr qreal strokeTop = 6.5;
    constexpr qreal strokeBottom = 10.5;
    constexpr qreal dot = 14;
    painter.setPen(QPen(Qt::black, 2, Qt::SolidLine, Qt::RoundCap));
    const qreal x = rect.center().x();
    painter.drawLine(QPointF(x, rect.top() + strokeTop), QPointF(x, rect.top() + strokeBottom));
    painter.drawPoint(QPointF(x, rect.top() + dot));
}

class WarningIcon final : public QWidget
{
public:
    explicit WarningIcon(QWidget *parent)
        : QWidget(parent)
    {
        Accessible::hide(*this);
        setFixedSize(iconSide + 2 * iconMargin, iconSide + iconMargin);
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        applicationIcon().paint(&painter, iconMargin, 0, iconSide, iconSide);
        painter.translate(iconMargin, 0);
        drawBadge(painter, iconSide - iconMargin);
    }
};

QLabel *centred(const QString &text, const QFont &font)
{
    QLabel *const label = Labels::plain(text, font, QPalette::WindowText);
    label->setAlignment(Qt::AlignHCenter);
    label->setWordWrap(true);
    label->setFixedWidth(alertWidth - 2 * padding);
    return label;
}
} // namespace

AlertWindow::AlertWindow(const Desktop &desktop, const QString &messageText,
                         const QString &informativeText, QWidget *over)
    : FloatingWindow(desktop, cornerRadius, Qt::Dialog, over)
    , m_content(new QWidget(this))
    , m_button(new QPushButton(tr("OK"), m_content))
{
    Accessible::setRole(*this, QAccessible::AlertMessage);
    setAccessibleName(messageText);
    setWindowTitle(messageText);
    setWindowModality(Qt::ApplicationModal);
    createContent(messageText, informativeText);
    connect(m_button, &QPushButton::clicked, this, &QWidget::close);
    connect(desktop.appearance.get(), &Appearance::changed, this, &AlertWindow::updateLook);
    updateLook();
    setFrameSize({alertWidth, m_content->layout()->totalHeightForWidth(alertWidth)});
    m_content->setGeometry(frame());
    moveToOpeningPlace();
}

void AlertWindow::createContent(const QString &messageText, const QString &informativeText)
{
    m_button->setStyle(new ControlStyle);
    m_button->style()->setParent(m_button);
    m_button->setFont(systemFont(FontSizes::body, QFont::Medium));
    m_button->setFixedSize(
        QSize(alertWidth - 2 * padding, buttonHeight).grownBy(ControlStyle::overhang));
    ControlStyle::setProminent(*m_button);
    m_button->setFocus();

    auto *const column = new QVBoxLayout(m_content);
    column->setContentsMargins(padding, padding, padding, padding);
    column->setSpacing(0);
    column->addWidget(new WarningIcon(m_content), 0, Qt::AlignHCenter);
    column->addSpacing(iconToTitle);
    column->addWidget(centred(messageText, systemFont(FontSizes::headline, QFont::Bold)));
    column->addSpacing(titleToText);
    column->addWidget(centred(informativeText, systemFont(FontSizes::explanation)));
    column->addSpacing(textToButton);
    column->addItem(new OverhangItem(m_button, ControlStyle::overhang));
}

QPoint AlertWindow::openingPlace(const QSize &size) const
{
    const QWidget *const over = parentWidget();
    if (over == nullptr || !over->isVisible()) {
        return placeIn(availableAreaWithPointer(), size, 0.5);
    }
    QRect place({}, size);
    place.moveCenter(over->mapToGlobal(over->rect().center()));
    return place.topLeft();
}

void AlertWindow::updateLook()
{
    m_look = look(*desktop().appearance);
    setPalette(m_look.palette());
    update();
}

void AlertWindow::hideEvent(QHideEvent *)
{
    emit dismissed();
}

void AlertWindow::showEvent(QShowEvent *)
{
    QAccessibleEvent event(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
}

void AlertWindow::keyPressEvent(QKeyEvent *event)
{
    // A key still held down from the prompt must not dismiss an alert that nobody has read yet.
    if (event->isAutoRepeat()) {
        return;
    }
    switch (event->key()) {
    case Qt::Key_Escape:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        m_button->click();
        break;
    default:
        FloatingWindow::keyPressEvent(event);
    }
}

void AlertWindow::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton) {
        desktop().windows->startMove(*this);
    }
}

void AlertWindow::paintEvent(QPaintEvent *)
{
    paintBackdrop(palette().color(QPalette::Window), m_look);
}
