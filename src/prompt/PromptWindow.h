// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Desktop.h"
#include "prompt/PromptGlassBackground.h"
#include "prompt/PromptView.h"

#include <QDateTime>
#include <QVariantAnimation>
#include <QWidget>

class TitleStrip;

/// The floating card: its frame, its place on the screen, and the shadow that it draws around
/// itself. Closing it only hides it.
class PromptWindow final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(PromptWindow)

public:
    /// @p openedAt is an instant (UTC), shown in the zone in force now. @p desktop must outlive the
    /// window; the window follows its appearance, but for a scheme that it is forced into.
    PromptWindow(const QDateTime &openedAt, std::optional<ColorScheme> forcedScheme,
                 const Desktop &desktop, PromptCallbacks callbacks);

protected:
    bool event(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void moveEvent(QMoveEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void createContent(const QString &title, PromptCallbacks callbacks);
    void followDesktop();
    void centreOnScreenWithPointer();
    void changeScreen();
    void followScreens();
    void settle();
    void scheduleFit();
    void fit();
    void setFrameHeight(int height);
    [[nodiscard]] int frameHeight() const;
    [[nodiscard]] QRect frame() const;
    void updateBackdrop();
    void updateLook();
    void announceShape();

    std::optional<ColorScheme> m_forcedScheme;
    const Desktop &m_desktop;
    PromptGlassBackground m_background;
    PromptGlassBackground::Behind m_behind = PromptGlassBackground::Behind::Opaque;
    QMargins m_shadow;
    /// Where the window opened; left to the user from then on.
    QPoint m_place;
    TitleStrip *m_titleStrip = nullptr;
    PromptView *m_view = nullptr;
    QVariantAnimation m_heightAnimation;
    bool m_isSettled = false;
};
