// SPDX-License-Identifier: MIT
#pragma once

#include <QProgressBar>
#include <QVariantAnimation>

#include <optional>

/// A thin bar in the accent colour that shows how far something is, or only that it goes on.
class ProgressBar final : public QProgressBar
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(ProgressBar)

public:
    /// @p isStill: what goes on for an unknown time is not animated.
    ProgressBar(bool isStill, QWidget *parent);

    /// 0 to 100; nothing while that cannot be told.
    void setPercentage(std::optional<int> percentage);

protected:
    void paintEvent(QPaintEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void moveOrRest();

    bool m_isStill;
    QVariantAnimation m_wandering;
};
