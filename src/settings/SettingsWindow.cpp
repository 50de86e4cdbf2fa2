// SPDX-License-Identifier: MIT
#include "settings/SettingsWindow.h"

#include "core/AppState.h"
#include "core/StateObserver.h"
#include "look/Accessible.h"
#include "look/ApplicationIcon.h"
#include "look/Screens.h"
#include "settings/SettingsView.h"

#include <QKeyEvent>
#include <QShortcut>
#include <QVBoxLayout>

SettingsWindow::SettingsWindow(AppState &state)
    : QWidget(nullptr,
              Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint
                  | Qt::WindowCloseButtonHint)
    , m_state(state)
    , m_view(new SettingsView(state, this))
{
    Accessible::setRole(*this, QAccessible::Window);
    // Programs find the window by its title, in every language.
    setWindowTitle(QStringLiteral("Tovla Settings"));
    setWindowIcon(applicationIcon());
    auto *const layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addWidget(m_view);

    new StateObserver(state, this, [this] { updateLook(); });
    connect(state.desktop().appearance.get(), &Appearance::changed, this,
            &SettingsWindow::updateLook);
    connect(new QShortcut(QKeySequence::Close, this), &QShortcut::activated, this, &QWidget::close);
    updateLook();
    adjustSize();
    move(centredOnScreenWithPointer(size()));
}

bool SettingsWindow::event(QEvent *event)
{
    if (event->type() == QEvent::WindowDeactivate) {
        // Alt may be let go in another window, as after Alt-Tab.
        m_view->showMnemonics(false);
    }
    return QWidget::event(event);
}

void SettingsWindow::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Alt) {
        m_view->showMnemonics(true);
    }
    QWidget::keyPressEvent(event);
}

void SettingsWindow::keyReleaseEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Alt) {
        m_view->showMnemonics(false);
    }
    QWidget::keyReleaseEvent(event);
}

void SettingsWindow::updateLook()
{
    // The theme is for the content; a chooser that opens over it follows the desktop.
    const Appearance &appearance = *m_state.desktop().appearance;
    setPalette(look(ThemePreference::system, appearance).palette());
    m_view->setLook(look(m_state.theme(), appearance));
}
