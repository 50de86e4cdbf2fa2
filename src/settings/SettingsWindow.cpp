// SPDX-License-Identifier: MIT
#include "settings/SettingsWindow.h"

#include "core/AppState.h"
#include "core/StateObserver.h"
#include "settings/SettingsView.h"

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>
#include <QShortcut>
#include <QVBoxLayout>

SettingsWindow::SettingsWindow(AppState &state)
    : QWidget(nullptr,
              Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint
                  | Qt::WindowCloseButtonHint)
    , m_state(state)
    , m_view(new SettingsView(state, this))
{
    setWindowTitle(tr("Tovla Settings"));
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
    centreOnScreenWithPointer();
}

void SettingsWindow::updateLook()
{
    const Look current = look(m_state.theme(), *m_state.desktop().appearance);
    setPalette(current.palette());
    m_view->setLook(current);
}

void SettingsWindow::centreOnScreenWithPointer()
{
    const QScreen *screen = QGuiApplication::screenAt(QCursor::pos());
    const QRect available
        = (screen ? screen : QGuiApplication::primaryScreen())->availableGeometry();
    // On a screen that is too small the title bar still has to be on it.
    move(available.topLeft()
         + QPoint(qMax(0, available.width() - width()), qMax(0, available.height() - height()))
             / 2);
}
