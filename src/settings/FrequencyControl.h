// SPDX-License-Identifier: MIT
#pragma once

#include "settings/IntervalText.h"

#include <QDateTime>
#include <QWidget>

#include <optional>

class Compositor;
class NumberField;
class QLabel;
class Stepper;

/// The number of minutes between two prompts, and the time of the next one.
class FrequencyControl final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(FrequencyControl)

public:
    /// @p compositor must outlive the control.
    explicit FrequencyControl(const Compositor &compositor);

    void showMinutes(qint64 minutes);
    /// Shows @p next (in UTC) in the current time zone, or nothing if no prompt is expected.
    void showNextPrompt(const std::optional<QDateTime> &next);

signals:
    /// From IntervalText::minimum to IntervalText::maximum.
    void minutesChosen(qint64 minutes);

protected:
    void changeEvent(QEvent *event) override;

private:
    void setFromText(const QString &text);
    void step(int direction);
    void set(qint64 minutes);
    void showNumber();
    void showNextTime();

    qint64 m_minutes = IntervalText::minimum;
    std::optional<QDateTime> m_next;
    NumberField *m_number;
    Stepper *m_stepper;
    QLabel *m_unit;
    QLabel *m_nextAt;
    QLabel *m_nextTime;
};
