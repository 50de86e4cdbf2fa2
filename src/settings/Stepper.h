// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

#include <functional>

/// Two arrows for the number next to it. Takes focus as one control; while it has focus, the up and
/// down keys and the wheel step as well. To assistive technology it is the number itself.
class Stepper final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(Stepper)

public:
    /// The limits and the step.
    struct Range {
        int minimum;
        int maximum;
        int step;
    };
    /// Called when the user changes the number.
    struct Callbacks {
        /// Receives 1 or -1 for each step.
        std::function<void(int)> stepBy;
        /// Receives a number in the range.
        std::function<void(int)> set;
    };

    Stepper(const Range &range, Callbacks callbacks, QWidget *parent);

    [[nodiscard]] const Range &range() const { return m_range; }
    [[nodiscard]] int value() const { return m_value; }
    /// Shows @p value, that is, reports it to assistive technology.
    void setValue(int value);
    /// Sets the number on behalf of the user, limited to the range.
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
