// SPDX-License-Identifier: MIT
#include "look/PanelWindow.h"

#include "look/Accessible.h"
#include "look/ApplicationIcon.h"
#include "look/ControlStyle.h"
#include "look/ScaleFollower.h"
#include "look/Screens.h"
#include "platform/Windows.h"

#include <QAbstractButton>
#include <QKeyEvent>
#include <QShortcut>

PanelWindow::PanelWindow(const QString &title, QAccessible::Role role)
    : QWidget(nullptr,
              Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint
                  | Qt::WindowCloseButtonHint)
    , m_style(new ControlStyle)
{
    m_style->setParent(this);
    Accessible::setRole(*this, role);
    setWindowTitle(title);
    setWindowIcon(applicationIcon());
    connect(new QShortcut(QKeySequence::Close, this), &QShortcut::activated, this, &QWidget::close);
}

PanelWindow::~PanelWindow() = default;

void PanelWindow::styleControls()
{
    const auto controls = findChildren<QWidget *>();
    for (QWidget *const control : controls) {
        control->setStyle(m_style);
    }
}

void PanelWindow::placeOnScreenWithPointer(Windows &windows)
{
    centre(windows);
    new ScaleFollower(*this, windows, [this, &windows] { centre(windows); });
}

void PanelWindow::centre(Windows &windows)
{
    adjustSize();
    windows.place(*this, placeIn(availableAreaWithPointer(), size(), 0.5));
}

bool PanelWindow::event(QEvent *event)
{
    if (event->type() == QEvent::WindowDeactivate) {
        // Alt may be released in another window, as after Alt-Tab.
        showMnemonics(false);
    }
    return QWidget::event(event);
}

void PanelWindow::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Alt) {
        showMnemonics(true);
    }
    QWidget::keyPressEvent(event);
}

void PanelWindow::keyReleaseEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Alt) {
        showMnemonics(false);
    }
    QWidget::keyReleaseEvent(event);
}

void PanelWindow::showMnemonics(bool shows)
{
    m_style->setShowsMnemonics(shows);
    const auto buttons = findChildren<QAbstractButton *>();
    for (QAbstractButton *const button : buttons) {
        button->update();
    }
}
