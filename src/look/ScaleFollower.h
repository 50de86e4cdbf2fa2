// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPointer>
#include <QScreen>

#include <functional>

class QWidget;
class Windows;

/// Hides a window and shows it again when the scale of its screen changes. The toolkit gives it its
/// new size, but otherwise some desktops keep its old picture or frame.
class ScaleFollower final : public QObject
{
    Q_DISABLE_COPY_MOVE(ScaleFollower)

public:
    /// @p window owns this, and @p windows must outlive it. @p place is called while the window is
    /// hidden, and again when it is shown.
    ScaleFollower(QWidget &window, Windows &windows, std::function<void()> place);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void watch(const QScreen *screen) const;
    void remember();
    void check();
    void showAgain();

    QWidget &m_window;
    Windows &m_windows;
    std::function<void()> m_place;
    /// Where the window was, and at which scale, when that was last looked at.
    QPointer<QScreen> m_screen;
    qreal m_ratio = 1;
    /// Whether it was shown again at a new scale and not painted since.
    bool m_mustBePlaced = false;
    /// Whether it was shown again at a new scale, and neither closed nor clicked since.
    bool m_hasFollowed = false;
};
