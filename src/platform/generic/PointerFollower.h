// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPoint>
#include <QWidget>

#include <optional>

/// Moves a window with the pointer until the mouse button is released, and then deletes itself. For
/// window managers that do not do so themselves.
class PointerFollower final : public QObject
{
    Q_OBJECT

public:
    /// Belongs to @p window, whose mouse button has just been pressed.
    explicit PointerFollower(QWidget &window);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void follow(const QPoint &pointer);

    QWidget &m_window;
    /// From the window's corner to the pointer.
    std::optional<QPoint> m_hold;
};
