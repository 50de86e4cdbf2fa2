// SPDX-License-Identifier: MIT
#pragma once

#include "settings/IntervalText.h"

#include <QDateTime>
#include <QLineEdit>
#include <QWidget>

#include <functional>
#include <optional>

class Compositor;
class QLabel;
class Stepper;

/// A number that is taken when it is committed: with Return, or when an edited text loses the focus
/// or the sight of its window.
class NumberField final : public QLineEdit
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(NumberField)

public:
    NumberField(std::function<void(const QString &)> committed, QWidget *parent);

    /// Sets the text as committed.
    void show(const QString &text);
    /// There is another text than the one shown, whether typed or set by assistive technology.
    [[nodiscard]] bool isEdited() const;
    /// Takes what is not committed yet, as when the focus goes.
    void commitIfEdited();

protected:
    void focusOutEvent(QFocusEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;

private:
    void commit();

    std::function<void(const QString &)> m_committed;
    QString m_shown;
};

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
    void take(const QString &text);
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
