// SPDX-License-Identifier: MIT
#pragma once

#include "look/FloatingWindow.h"
#include "look/Look.h"
#include "prompt/PromptGlassBackground.h"
#include "prompt/PromptView.h"

#include <QDateTime>
#include <QVariantAnimation>

class TitleStrip;

/// The floating card. Grows downwards with its text. Closing it only hides it.
class PromptWindow final : public FloatingWindow
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(PromptWindow)

public:
    /// @p openedAt is in UTC and shown in the time zone in force now. @p desktop must outlive the
    /// window, which follows its appearance, except for the colour scheme if @p forcedScheme is
    /// set.
    PromptWindow(const QDateTime &openedAt, std::optional<ColorScheme> forcedScheme,
                 const Desktop &desktop, PromptCallbacks callbacks);

protected:
    [[nodiscard]] QPoint openingPlace(const QSize &size) const override;
    void closeEvent(QCloseEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void moveEvent(QMoveEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void createContent(const QString &title, PromptCallbacks callbacks);
    void holdSession() const;
    void settle();
    void scheduleFit();
    void fit();
    [[nodiscard]] int fittingHeight() const;
    void setFrameHeight(int height);
    void updateLook();

    std::optional<ColorScheme> m_forcedScheme;
    Look m_look;
    TitleStrip *m_titleStrip = nullptr;
    PromptView *m_view = nullptr;
    QVariantAnimation m_heightAnimation;
    bool m_isSettled = false;
};
