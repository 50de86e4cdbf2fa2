// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

#include <functional>

/// Two arrows for a number beside it. Takes the focus as one control; with it, the up and down keys
/// and the wheel step too. To assistive technology it is the number itself.
class Stepper final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(Stepper)

public:
    /// What the number may be.
    struct Range {
        int minimum;
        int maximum;
        int step;
    };
    /// What the user wants of it.
    struct Callbacks {
        /// Gets 1 or -1 for each step.
        std::function<void(int)> stepBy;
        /// Gets a number in the range.
        std::function<void(int)> set;
    };

    Stepper(const Range &range, Callbacks callbacks, QWidget *parent);

    [[nodiscard]] const Range &range() const { return m_range; }
    [[nodiscard]] int value() const { return m_value; }
    /// The number is @p value now.
    void setValue(int value);
    /// The user wants another number; one out of the range becomes the nearest in it.
    void request(int value);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void stepBy(int direction);
    void announceUnlessFocused(int before);

    Range m_range;
    Callbacks m_callbacks;
    int m_value = 0;
    int m_wheelRest = 0;
};
