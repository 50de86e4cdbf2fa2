// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Desktop.h"
#include "support/TestPackageManager.h"

#include <QColor>
#include <QHash>
#include <QPointer>
#include <QRegion>
#include <QStringList>
#include <QTimeZone>
#include <QWidget>

/// A desktop for tests: a clock that they set, a timer that they fire, preferences in memory,
/// alerts and sounds that are only recorded, and a folder chooser that answers immediately. Must
/// outlive every AppState that uses it.
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

    /// For the constructor of AppState. Must be called only once.
    [[nodiscard]] Desktop capabilities();

    QDateTime now{QDate(2026, 11, 15), QTime(9, 5), QTimeZone::utc()};
    /// Sets the clock while the program is running.
    void setClock(const QDateTime &time);
    void setZone(const char *name);

    /// The interval of the running timer; nullopt if there is none.
    std::optional<std::chrono::seconds> timerInterval;
    int timersMade = 0;
    int mostTimersAtOnce = 0;
    /// The remaining time that the running timer reports.
    std::chrono::seconds timerRemaining{0};
    void fireTimer() const { m_timerAction(); }

    QHash<QString, QString> stored;
    int writes = 0;

    QList<Alert> alerts;
    /// For example "play Purr" and "stop Purr", in chronological order.
    QStringList soundLog;
    QList<QPointer<QWidget>> presented;
    /// What the sounds' log contained when a window was last presented.
    QStringList soundLogWhenPresented;
    /// The windows that the user began to move.
    QList<QPointer<QWidget>> moved;

    /// Set once the first AppState has been created.
    QPointer<TestPackageManager> packageManager;

    /// Why the session is asked to stay; empty while it is not.
    QString sessionHold;

    bool canRestart = true;
    int restarts = 0;

    bool isComposited = true;
    bool blursBehind = false;
    /// What is to be blurred behind the last window that asked for it, in its coordinates.
    QRegion blurred;
    void setComposited(bool composited);
    ColorScheme colorScheme = ColorScheme::Light;
    void setColorScheme(ColorScheme scheme);
    /// Invalid while the desktop has none.
    QColor accent;
    bool wantsReducedMotion = true;
    bool wantsHighContrast = false;

    /// The chooser's answer; if empty, the user cancels.
    QString chosenFolder;
    int choosersOpened = 0;
    QString chooserPrompt;

private:
    class TestTimers;
    class TestTimer;
    friend class TestTimer;

    std::function<void()> m_timerAction;
    int m_timersRunning = 0;
    QPointer<Clock> m_clock;
    QPointer<Compositor> m_compositor;
    QPointer<Appearance> m_appearance;
};
