// SPDX-License-Identifier: MIT
#pragma once

#include <QLineEdit>
#include <QWidget>

#include <functional>

class AppState;
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

    /// Takes what was typed and not committed yet, as when the focus goes.
    void commitIfEdited();

protected:
    void contextMenuEvent(QContextMenuEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;

private:
    void commit();

    std::function<void(const QString &)> m_committed;
};

/// How many minutes there are between two prompts, and when the next one comes.
class FrequencyControl final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(FrequencyControl)

public:
    /// @p state must outlive the control.
    explicit FrequencyControl(AppState &state);

protected:
    void changeEvent(QEvent *event) override;

private:
    void take(const QString &text);
    void step(int direction);
    void refresh();
    void showNumber();
    void showNextPrompt();

    AppState &m_state;
    NumberField *m_number;
    Stepper *m_stepper;
    QLabel *m_unit;
    QLabel *m_nextAt;
    QLabel *m_nextTime;
};
