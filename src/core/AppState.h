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

/// The program's entire state and its operations: the four settings, the timer, the time of the
/// next prompt, and the windows. Belongs to the main thread.
///
/// Each operation is defined in the room that it belongs to: savePrompt() and its alert in
/// journal/AppStateJournal.cpp; showPrompt(), openPrompt(), closePrompt() and playSelectedSound()
/// in prompt/AppStatePrompt.cpp; showSettings() in settings/AppStateSettings.cpp; and the rest in
/// core/AppState.cpp.
///
/// Every setter emits willChange(), stores the value (on disk when the setter returns, if that is
/// possible) and, for the folder and the interval, restarts the timer, even if the value is the
/// same as before. Setters store values unchecked: the controls in settings/ offer only valid ones.
/// Stored values are checked when they are loaded, and bad ones are replaced by the defaults.
class AppState final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(AppState)

public:
    /// The single instance, created on first use and never freed. Needs the application object.
    [[nodiscard]] static AppState &shared();

    /// The names of the alert sounds, in the order in which they are listed.
    [[nodiscard]] static const QStringList &availableSounds();

    /// The journal folder; empty until one is chosen.
    [[nodiscard]] const QString &folderPath() const { return m_folderPath; }
    void setFolderPath(const QString &folderPath);

    /// Minutes between two prompts. The settings offer 1 to 1440, but a positive interval that was
    /// edited by hand is used as it is (see restartTimer()).
    [[nodiscard]] qint64 intervalMinutes() const { return m_intervalMinutes; }
    void setIntervalMinutes(qint64 intervalMinutes);

    [[nodiscard]] ThemePreference theme() const { return m_theme; }
    void setTheme(ThemePreference theme);

    /// The alert sound that is played when a prompt opens.
    [[nodiscard]] const QString &soundName() const { return m_soundName; }
    void setSoundName(const QString &soundName);

    /// When the timer is next expected to fire (UTC); nullopt while no timer is running.
    [[nodiscard]] const std::optional<QDateTime> &nextPromptDate() const
    {
        return m_nextPromptDate;
    }

    /// The interval and the journal folder, on one line.
    [[nodiscard]] QString statusLine() const;

    /// Called once at startup: opens the settings if there is no folder, and starts the timer.
    void start();
    /// Restarts the timer, so that the next prompt opens a full interval from now. Without a
    /// folder, no timer runs. An interval whose seconds do not fit 64 bits ends the process on
    /// purpose.
    void restartTimer();
    /// Opens a prompt, unless one is already visible.
    void showPrompt();
    /// The open prompt, or null. Owned by this object.
    [[nodiscard]] QWidget *openPrompt() const;
    /// Plays the chosen sound and stops any previous one.
    void playSelectedSound();
    /// Opens the settings window or brings it to the front.
    void showSettings();

    [[nodiscard]] const Desktop &desktop() const { return m_desktop; }
    /// Takes over @p alerts, for a desktop that has none of its own. Must be called before start().
    void setAlerts(std::unique_ptr<Alerts> alerts) { m_desktop.alerts = std::move(alerts); }

signals:
    /// Emitted before a setting or the next prompt's date changes.
    void willChange();

private:
    friend class AppStateForTests;

    /// Deletes a window in a later iteration of the event loop, so that it can be closed from its
    /// own callback.
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
    /// Appends the note to the day file of @p openedAt (in UTC); does nothing if the note is blank.
    /// A failure is shown in an alert. The note is then lost, because the caller closes the prompt
    /// in any case.
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
