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

/// The window for checking for, offering and installing updates. It shows the page for the
/// session's state and contains no logic of its own.
class UpdateWindow final : public PanelWindow
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(UpdateWindow)

public:
    /// @p desktop and @p session must outlive the window.
    UpdateWindow(const Desktop &desktop, UpdateSession &session);

signals:
    /// The user wants to restart the program.
    void restartRequested();

protected:
    void closeEvent(QCloseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    bool event(QEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void layOut();
    [[nodiscard]] QLabel *addText(int fontSize, QPalette::ColorRole role);
    void addButtons();
    void updateLook();
    void refresh();
    void showPage(const UpdatePage &page);
    void perform(UpdatePage::Action action);
    void announcePage();

    const Desktop &m_desktop;
    UpdateSession &m_session;
    UpdatePage m_page;
    /// Whether the page has been announced to screen readers.
    bool m_isAnnounced = false;
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
