// SPDX-License-Identifier: MIT
#pragma once

#include "core/ThemePreference.h"
#include "platform/Desktop.h"

#include <QDateTime>
#include <QObject>
#include <QStringList>

#include <memory>
#include <optional>

class QWidget;

/// Everything that the running program knows, and what it does with it: the four settings, the
/// timer, the moment of the next prompt, and the windows. Lives on the main thread.
///
/// Its operations are defined in the folders whose subject they are: saving under journal/, the
/// prompt under prompt/, the settings window under settings/.
class AppState final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(AppState)

public:
    /// The one instance, made on first use and never freed. Needs the application object.
    [[nodiscard]] static AppState &shared();

    /// The names of the alert sounds that can be chosen, in the order in which they are offered.
    [[nodiscard]] static const QStringList &availableSounds();

    /// Every assignment announces itself through willChange(), is on the disk when it returns and,
    /// for the folder and the interval, restarts the timer; also when nothing changes by it.
    /// Values are stored as they are given.

    /// The journal folder; the empty text until one is chosen.
    [[nodiscard]] const QString &folderPath() const { return m_folderPath; }
    void setFolderPath(const QString &folderPath);

    /// Minutes between two prompts.
    [[nodiscard]] qint64 intervalMinutes() const { return m_intervalMinutes; }
    void setIntervalMinutes(qint64 intervalMinutes);

    [[nodiscard]] ThemePreference theme() const { return m_theme; }
    void setTheme(ThemePreference theme);

    /// The alert sound that is played when a prompt opens.
    [[nodiscard]] const QString &soundName() const { return m_soundName; }
    void setSoundName(const QString &soundName);

    /// When the timer is next expected to fire (UTC); nothing while no timer runs.
    [[nodiscard]] const std::optional<QDateTime> &nextPromptDate() const
    {
        return m_nextPromptDate;
    }

    /// How often prompts come and where notes go, in one line.
    [[nodiscard]] QString statusLine() const;

    /// What the program does once it runs: asks for a folder if there is none, starts the timer.
    void start();
    /// Replaces the timer, so that the next prompt comes a whole interval from now. Without a
    /// folder no timer runs. An interval whose seconds do not fit 64 bits ends the process.
    void restartTimer();
    /// Opens a prompt; does nothing at all while one is visible.
    void showPrompt();
    /// The prompt that is open, or null. Owned here.
    [[nodiscard]] QWidget *openPrompt() const;
    /// Plays the chosen sound, stopping one that still plays.
    void playSelectedSound();
    /// Opens the settings window or brings it to the front.
    void showSettings();

    [[nodiscard]] const Desktop &desktop() const { return m_desktop; }

signals:
    /// Sent before a setting or the next prompt's date takes its new value.
    void willChange();

private:
    friend class AppStateForTests;

    /// A window is let go on a later turn of the event loop, so that it may be closed from inside
    /// its own callback.
    struct DeleteLater {
        void operator()(QWidget *window) const;
    };
    using OwnedWindow = std::unique_ptr<QWidget, DeleteLater>;

    explicit AppState(Desktop desktop);
    ~AppState() override;

    void promptIsDue(std::chrono::seconds interval);
    void clockWasSet();
    void setNextPromptDate(const std::optional<QDateTime> &date);
    void closePrompt();
    /// Appends the note to the day file of @p openedAt (an instant in UTC). A failure is shown in
    /// an alert and then dropped.
    void savePrompt(const QString &text, const QDateTime &openedAt);
    void showJournalAlert(const QString &informativeText);

    Desktop m_desktop;
    QString m_folderPath;
    qint64 m_intervalMinutes;
    ThemePreference m_theme;
    QString m_soundName;
    std::optional<QDateTime> m_nextPromptDate;
    std::unique_ptr<RepeatingTimer> m_timer;
    OwnedWindow m_promptWindow;
    OwnedWindow m_settingsWindow;
    std::unique_ptr<Sound> m_soundPlayer;
};
