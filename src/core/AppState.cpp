// SPDX-License-Identifier: MIT
#include "core/AppState.h"

#include "core/PromptSchedule.h"

#include <QPointer>
#include <QWidget>

#include <cstdio>
#include <cstdlib>

namespace
{
constexpr qint64 defaultIntervalMinutes = 60;
const QString folderPathKey = QStringLiteral("folderPath");
const QString intervalMinutesKey = QStringLiteral("intervalMinutes");
const QString themeKey = QStringLiteral("theme");
const QString soundNameKey = QStringLiteral("soundName");

qint64 loadedInterval(const Preferences &preferences)
{
    const qint64 stored = preferences.integer(intervalMinutesKey);
    return stored > 0 ? stored : defaultIntervalMinutes;
}

ThemePreference loadedTheme(const Preferences &preferences)
{
    return themePreference(preferences.string(themeKey).value_or(QString()))
        .value_or(ThemePreference::system);
}

QString loadedSoundName(const Preferences &preferences)
{
    const QString stored = preferences.string(soundNameKey).value_or(QString());
    return AppState::availableSounds().contains(stored) ? stored : QStringLiteral("Purr");
}

// The settings cannot produce such an interval, so an overflow here is a programming error or an
// edited file. It ends the program on purpose, like a trap, instead of opening prompts at a time
// that nobody chose.
[[noreturn]] void endBecauseIntervalOverflows()
{
    std::fputs("tovla: the prompt interval in seconds does not fit 64 bits\n", stderr);
    std::_Exit(EXIT_FAILURE);
}
} // namespace

void AppState::DeleteLater::operator()(QWidget *window) const
{
    window->deleteLater();
}

AppState &AppState::shared()
{
    static auto *const shared = new AppState(Desktop::ofThisPlatform());
    return *shared;
}

const QStringList &AppState::availableSounds()
{
    static const QStringList names = QStringLiteral("Basso Blow Bottle Frog Funk Glass Hero Morse "
                                                    "Ping Pop Purr Sosumi Submarine Tink")
                                         .split(u' ');
    return names;
}

AppState::AppState(Desktop desktop)
    : m_desktop(std::move(desktop))
    , m_folderPath(m_desktop.preferences->string(folderPathKey).value_or(QString()))
    , m_intervalMinutes(loadedInterval(*m_desktop.preferences))
    , m_theme(loadedTheme(*m_desktop.preferences))
    , m_soundName(loadedSoundName(*m_desktop.preferences))
{
    connect(m_desktop.clock.get(), &Clock::wasSet, this, &AppState::clockWasSet);
}

AppState::~AppState() = default;

void AppState::setFolderPath(const QString &folderPath)
{
    emit willChange();
    m_folderPath = folderPath;
    m_desktop.preferences->setString(folderPathKey, m_folderPath);
    restartTimer();
}

void AppState::setIntervalMinutes(qint64 intervalMinutes)
{
    emit willChange();
    m_intervalMinutes = intervalMinutes;
    m_desktop.preferences->setInteger(intervalMinutesKey, m_intervalMinutes);
    restartTimer();
}

void AppState::setTheme(ThemePreference theme)
{
    emit willChange();
    m_theme = theme;
    m_desktop.preferences->setString(themeKey, rawValue(m_theme));
}

void AppState::setSoundName(const QString &soundName)
{
    emit willChange();
    m_soundName = soundName;
    m_desktop.preferences->setString(soundNameKey, m_soundName);
}

void AppState::setNextPromptDate(const std::optional<QDateTime> &date)
{
    emit willChange();
    m_nextPromptDate = date;
}

QString AppState::statusLine() const
{
    return PromptSchedule::statusLine(m_intervalMinutes, m_folderPath);
}

void AppState::start()
{
    if (m_folderPath.isEmpty()) {
        showSettings();
    }
    restartTimer();
}

void AppState::restartTimer()
{
    m_timer.reset();
    if (m_folderPath.isEmpty()) {
        setNextPromptDate(std::nullopt);
        return;
    }
    const auto interval = PromptSchedule::interval(m_intervalMinutes);
    if (!interval) {
        endBecauseIntervalOverflows();
    }
    setNextPromptDate(PromptSchedule::nextPromptDate(m_desktop.clock->now(), *interval));
    // The timer stops with this object; the QPointer guards against a timer that calls late.
    m_timer = m_desktop.timers->repeat(*interval, [state = QPointer(this), interval = *interval] {
        if (state) {
            state->promptIsDue(interval);
        }
    });
}

void AppState::clockWasSet()
{
    // The timer measures elapsed time and is not affected by the clock.
    if (m_timer) {
        setNextPromptDate(
            PromptSchedule::nextPromptDate(m_desktop.clock->now(), m_timer->remaining()));
    }
}

void AppState::promptIsDue(std::chrono::seconds interval)
{
    setNextPromptDate(PromptSchedule::nextPromptDate(m_desktop.clock->now(), interval));
    showPrompt();
}
