// SPDX-License-Identifier: MIT
#pragma once

#include <QProgressBar>
#include <QVariantAnimation>

#include <optional>

/// A thin bar in the accent colour that shows progress, or only activity while the progress is
/// unknown.
class ProgressBar final : public QProgressBar
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(ProgressBar)

public:
    /// With @p isStill, unknown progress is not animated.
    ProgressBar(bool isStill, QWidget *parent);

    /// 0 to 100; nullopt while unknown. Reported to screen readers in steps of ten.
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
