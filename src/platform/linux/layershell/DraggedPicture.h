// SPDX-License-Identifier: MIT
#pragma once

#include <QPixmap>
#include <QPointer>
#include <QWidget>

/// Stands for a layer surface while the user drags it. The surface itself becomes transparent and
/// stays, since compositors disagree on where the pointer is in a surface that moves meanwhile.
class DraggedPicture final : public QWidget
{
    Q_DISABLE_COPY_MOVE(DraggedPicture)

public:
    /// A picture of @p window, which must outlive it. It is not shown yet.
    explicit DraggedPicture(QWidget &window);
    ~DraggedPicture() override;

    /// Shows the picture where the window is.
    void replaceWindow();
    /// Shows the window again, below the picture.
    void showWindow();

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QWidget &m_window;
    QPixmap m_picture;
    QPointer<QWidget> m_veil;
};
