// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>

/// The round button at the left of a prompt's title strip.
class CloseButton final : public QAbstractButton
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(CloseButton)

public:
    /// The diameter of the circle, in logical pixels.
    static constexpr int diameter = 12;
    /// The side of the clickable square, large enough to hit easily (WCAG 2.2, 2.5.8).
    static constexpr int side = 24;

    explicit CloseButton(QWidget *parent);

protected:
    void paintEvent(QPaintEvent *event) override;
    void enterEvent(QEnterEvent *event) override;
    void leaveEvent(QEvent *event) override;

private:
    [[nodiscard]] bool showsCross() const;
};
