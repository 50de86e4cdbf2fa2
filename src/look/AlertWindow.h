// SPDX-License-Identifier: MIT
#pragma once

#include "look/FloatingWindow.h"
#include "look/Look.h"

class QLabel;
class QPushButton;

/// A warning with a single button, modal to the whole application and reported to assistive
/// technology as an alert. Hides itself when dismissed.
class AlertWindow final : public FloatingWindow
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(AlertWindow)

public:
    /// Both texts are plain text. @p desktop must outlive the window. The window is deleted with
    /// @p over (may be null) and opens centred over it.
    AlertWindow(const Desktop &desktop, const QString &messageText, const QString &informativeText,
                QWidget *over);

signals:
    void dismissed();

protected:
    [[nodiscard]] QPoint openingPlace(const QSize &size) const override;
    void hideEvent(QHideEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    void createContent(const QString &messageText, const QString &informativeText);
    void updateLook();

    QWidget *m_content;
    QPushButton *m_button;
    Look m_look{};
};
