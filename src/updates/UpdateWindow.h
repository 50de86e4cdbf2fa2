// SPDX-License-Identifier: MIT
#pragma once

#include "look/PanelWindow.h"
#include "updates/UpdatePage.h"

#include <QPalette>

struct Desktop;
class ProgressBar;
class QLabel;
class QPushButton;
class QVBoxLayout;
class TextBox;
class UpdateSession;

/// The one window in which updates are looked for, offered and installed. It shows the page of the
/// state that they are in and decides nothing.
class UpdateWindow final : public PanelWindow
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(UpdateWindow)

public:
    /// @p desktop and @p session must outlive the window.
    UpdateWindow(const Desktop &desktop, UpdateSession &session);

signals:
    /// The user wants the program to start again.
    void restartRequested();

protected:
    void closeEvent(QCloseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void layOut();
    [[nodiscard]] QLabel *addText(int fontSize, QPalette::ColorRole role);
    void addButtons();
    void updateLook();
    void refresh();
    void showPage(const UpdatePage &page);
    void perform(UpdatePage::Action action);
    void tellScreenReader();

    const Desktop &m_desktop;
    UpdateSession &m_session;
    UpdatePage m_page;
    QVBoxLayout *m_column;
    QLabel *m_headline;
    QLabel *m_text;
    ProgressBar *m_bar;
    QLabel *m_remark;
    QLabel *m_notesTitle;
    TextBox *m_notes;
    QPushButton *m_detailsButton;
    TextBox *m_details;
    QPushButton *m_secondary;
    QPushButton *m_primary;
};
