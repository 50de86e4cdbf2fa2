// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPoint>

#include <memory>
#include <optional>

class DraggedPicture;
class QWidget;

namespace LayerShellQt
{
class Window;
}

/// Makes a window a layer surface above everything else. The toolkit believes that every window is
/// in the corner of its screen; this knows where it really is.
class LayerSurface final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(LayerSurface)

public:
    ~LayerSurface() override;

    /// The surface of @p window, which owns it. Must first be called before the window is shown.
    [[nodiscard]] static LayerSurface &of(QWidget &window);

    /// Opens the window at @p topLeft, in the toolkit's coordinates. Without a parent that is
    /// shown, it is centred horizontally, on the screen that the compositor chooses.
    void place(const QPoint &topLeft);
    /// Gives the window keyboard focus the next time it is shown.
    void takeKeyboard();
    /// Moves the window with the pointer until the mouse button is released.
    void startMove();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    explicit LayerSurface(QWidget &window);
    [[nodiscard]] QPoint placeOnScreen() const;
    void setPlace(std::optional<int> left, int top);
    void insistOnKeyboard();
    /// Lets the program that the pointer goes to have the keyboard, or takes it back.
    void lendKeyboard(bool isLent);
    void followPointer(const QPoint &pointer);
    void letGo();
    /// Applies to a window that is shown what was set since its last frame.
    void commit();

    QWidget &m_window;
    LayerShellQt::Window &m_surface;
    /// Unset while the window is centred.
    std::optional<int> m_left;
    int m_top = 0;
    bool m_wantsKeyboard = false;
    /// The compositor gives the keyboard only to exclusive surfaces, and so to nothing beside them.
    bool m_needsExclusiveness = false;
    /// Where the pointer last pressed and, while it moves the window, holds it.
    QPoint m_pressed;
    bool m_isHeld = false;
    std::unique_ptr<DraggedPicture> m_dragged;
};
