// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Desktop.h"
#include "support/TestPackageManager.h"

#include <QHash>
#include <QPointer>
#include <QStringList>
#include <QTimeZone>
#include <QWidget>

/// A desktop made for tests: a clock that they turn, a timer that they fire, a store in memory,
/// alerts that are only noted, sounds that nobody hears, a chooser that answers at once.
/// Outlives every AppState that uses it.
class TestDesktop final
{
public:
    struct Alert {
        QString messageText;
        QString informativeText;
        QWidget *over;
        bool wasPromptVisible;
    };

    TestDesktop();
    ~TestDesktop();
    Q_DISABLE_COPY_MOVE(TestDesktop)

    /// What an AppState is made with; to be asked for once.
    [[nodiscard]] Desktop capabilities();

    QDateTime now{QDate(2026, 11, 15), QTime(9, 5), QTimeZone::utc()};
    /// As somebody who sets the clock while the program runs.
    void setClock(const QDateTime &time);
    void setZone(const char *name);

    /// The interval of the running timer; nothing while none runs.
    std::optional<std::chrono::seconds> timerInterval;
    int timersMade = 0;
    /// What is left of the interval, as the running timer tells it.
    std::chrono::seconds timerRemaining{0};
    void fireTimer() const { m_timerAction(); }

    QHash<QString, QString> stored;
    int writes = 0;

    QList<Alert> alerts;
    /// "play Purr", "stop Purr", in the order in which it happened.
    QStringList soundLog;
    QList<QPointer<QWidget>> presented;

    /// There from the first AppState on.
    QPointer<TestPackageManager> packageManager;

    bool canRestart = true;
    int restarts = 0;

    bool isComposited = true;
    void setComposited(bool composited);
    ColorScheme colorScheme = ColorScheme::Light;
    void setColorScheme(ColorScheme scheme);
    bool wantsReducedMotion = true;
    bool wantsHighContrast = false;

    /// What the chooser answers; the empty text cancels.
    QString chosenFolder;
    int choosersOpened = 0;
    QString chooserPrompt;

private:
    class TestTimers;
    class TestTimer;
    friend class TestTimer;

    std::function<void()> m_timerAction;
    QPointer<Clock> m_clock;
    QPointer<Compositor> m_compositor;
    QPointer<Appearance> m_appearance;
};
