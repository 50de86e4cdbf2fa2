// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>
#include <QWidget>

#include <functional>

/// One half of a stepper: an arrow that repeats while it is held.
class StepButton final : public QAbstractButton
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(StepButton)

public:
    enum class Arrow { Up, Down };

    StepButton(Arrow arrow, const QString &name, QWidget *parent);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    Arrow m_arrow;
};

/// Two arrows for a number beside it. Takes the focus as one control; with it, the up and down keys
/// and the wheel step too.
class Stepper final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(Stepper)

public:
    /// @p stepBy gets 1 or -1 for each step.
    Stepper(std::function<void(int)> stepBy, QWidget *parent);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    std::function<void(int)> m_stepBy;
    int m_wheelRest = 0;
};
