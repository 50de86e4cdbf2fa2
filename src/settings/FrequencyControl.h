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

/// How many minutes there are between two prompts, and when the next one comes.
class FrequencyControl final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(FrequencyControl)

public:
    /// @p compositor must outlive the control.
    explicit FrequencyControl(const Compositor &compositor);

    void showMinutes(qint64 minutes);
    /// An instant (UTC), shown in the current time zone; nothing while no prompt is expected.
    void showNextPrompt(const std::optional<QDateTime> &next);

signals:
    /// Within the limits of what can be chosen.
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
