// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>

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
