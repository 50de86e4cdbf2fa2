// SPDX-License-Identifier: MIT
#include "support/TestDesktop.h"

#include "platform/generic/PosixFiles.h"
#include "support/TimeZone.h"

#include <algorithm>

namespace
{
class TestClock final : public Clock
{
public:
    explicit TestClock(const TestDesktop &desktop)
        : m_desktop(desktop)
    {
    }
    [[nodiscard]] QDateTime now() const override { return m_desktop.now; }

private:
    const TestDesktop &m_desktop;
};

class StoreInMemory final : public Preferences
{
public:
    explicit StoreInMemory(TestDesktop &desktop)
        : m_desktop(desktop)
    {
    }

    [[nodiscard]] std::optional<QString> string(const QString &key) const override
    {
        const auto found = m_desktop.stored.constFind(key);
        return found == m_desktop.stored.constEnd() ? std::nullopt : std::optional(*found);
    }
    [[nodiscard]] qint64 integer(const QString &key) const override
    {
        return m_desktop.stored.value(key).toLongLong();
    }
    void setString(const QString &key, const QString &value) override
    {
        m_desktop.stored.insert(key, value);
        ++m_desktop.writes;
    }
    void setInteger(const QString &key, qint64 value) override
    {
        setString(key, QString::number(value));
    }

private:
    TestDesktop &m_desktop;
};

class NotedAlerts final : public Alerts
{
public:
    explicit NotedAlerts(TestDesktop &desktop)
        : m_desktop(desktop)
    {
    }
    void warn(const QString &messageText, const QString &informativeText, QWidget *over) override
    {
        m_desktop.alerts.append(
            {messageText, informativeText, over, over != nullptr && over->isVisible()});
    }

private:
    TestDesktop &m_desktop;
};

class NotedSound final : public Sound
{
public:
    NotedSound(TestDesktop &desktop, QString name)
        : m_desktop(desktop)
        , m_name(std::move(name))
    {
    }
    void play() override { m_desktop.soundLog.append(QStringLiteral("play ") + m_name); }
    void stop() override { m_desktop.soundLog.append(QStringLiteral("stop ") + m_name); }

private:
    TestDesktop &m_desktop;
    QString m_name;
};

class NotedSounds final : public Sounds
{
public:
    explicit NotedSounds(TestDesktop &desktop)
        : m_desktop(desktop)
    {
    }
    [[nodiscard]] std::unique_ptr<Sound> soundNamed(const QString &name) override
    {
        const bool isKnown = name == u"Purr" || name == u"Glass";
        return isKnown ? std::make_unique<NotedSound>(m_desktop, name) : nullptr;
    }

private:
    TestDesktop &m_desktop;
};

class NotedWindows final : public Windows
{
public:
    explicit NotedWindows(TestDesktop &desktop)
        : m_desktop(desktop)
    {
    }
    void place(QWidget &window, const QPoint &topLeft) override { window.move(topLeft); }
    void showInactive(QWidget &window) override { window.show(); }
    void present(QWidget &window) override
    {
        m_desktop.presented.append(&window);
        m_desktop.soundLogWhenPresented = m_desktop.soundLog;
        window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
        window.show();
        window.activateWindow();
    }
    void withdraw(QWidget &window) override { window.hide(); }
    void startMove(QWidget &window) override { m_desktop.moved.append(&window); }
    void setShadow(QWidget &, const QMargins &) override { }
    void setBlurBehind(QWidget &, const QRegion &region) override { m_desktop.blurred = region; }

private:
    TestDesktop &m_desktop;
};

class NotedSession final : public Session
{
public:
    explicit NotedSession(TestDesktop &desktop)
        : m_desktop(desktop)
    {
    }
    void hold(const QString &reason) override { m_desktop.sessionHold = reason; }
    void release() override { m_desktop.sessionHold.clear(); }

private:
    TestDesktop &m_desktop;
};

class TestCompositor final : public Compositor
{
public:
    explicit TestCompositor(const TestDesktop &desktop)
        : m_desktop(desktop)
    {
    }
    [[nodiscard]] bool isRunning() const override { return m_desktop.isComposited; }
    [[nodiscard]] bool blursBehind() const override { return m_desktop.blursBehind; }

private:
    const TestDesktop &m_desktop;
};

class TestAppearance final : public Appearance
{
public:
    explicit TestAppearance(const TestDesktop &desktop)
        : m_desktop(desktop)
    {
    }
    [[nodiscard]] ColorScheme colorScheme() const override { return m_desktop.colorScheme; }
    [[nodiscard]] QColor accent() const override { return m_desktop.accent; }
    [[nodiscard]] bool wantsHighContrast() const override { return m_desktop.wantsHighContrast; }
    [[nodiscard]] bool wantsReducedMotion() const override { return m_desktop.wantsReducedMotion; }
    void windowsWillOpen() override { }

private:
    const TestDesktop &m_desktop;
};

class TestProgram final : public Program
{
public:
    explicit TestProgram(TestDesktop &desktop)
        : m_desktop(desktop)
    {
    }
    [[nodiscard]] QString path() const override { return QStringLiteral("/usr/bin/tovla"); }
    [[nodiscard]] bool canRestart() const override { return m_desktop.canRestart; }
    void restart() override { ++m_desktop.restarts; }

private:
    TestDesktop &m_desktop;
};

class InstantChooser final : public FolderChooser
{
public:
    explicit InstantChooser(TestDesktop &desktop)
        : m_desktop(desktop)
    {
    }
    void choose(QWidget &, const QString &prompt,
                std::function<void(const QString &path)> chosen) override
    {
        ++m_desktop.choosersOpened;
        m_desktop.chooserPrompt = prompt;
        if (!m_desktop.chosenFolder.isEmpty()) {
            chosen(m_desktop.chosenFolder);
        }
    }

private:
    TestDesktop &m_desktop;
};
} // namespace

class TestDesktop::TestTimer final : public RepeatingTimer
{
public:
    explicit TestTimer(TestDesktop &desktop)
        : m_desktop(desktop)
    {
        ++m_desktop.m_timersRunning;
        m_desktop.mostTimersAtOnce
            = std::max(m_desktop.mostTimersAtOnce, m_desktop.m_timersRunning);
    }
    ~TestTimer() override
    {
        --m_desktop.m_timersRunning;
        m_desktop.timerInterval.reset();
        m_desktop.m_timerAction = {};
    }
    Q_DISABLE_COPY_MOVE(TestTimer)

    [[nodiscard]] std::chrono::seconds remaining() const override
    {
        return m_desktop.timerRemaining;
    }

private:
    TestDesktop &m_desktop;
};

class TestDesktop::TestTimers final : public Timers
{
public:
    explicit TestTimers(TestDesktop &desktop)
        : m_desktop(desktop)
    {
    }
    [[nodiscard]] std::unique_ptr<RepeatingTimer> repeat(std::chrono::seconds interval,
                                                         std::function<void()> action) override
    {
        ++m_desktop.timersMade;
        m_desktop.timerInterval = interval;
        m_desktop.m_timerAction = std::move(action);
        return std::make_unique<TestTimer>(m_desktop);
    }

private:
    TestDesktop &m_desktop;
};

TestDesktop::TestDesktop() = default;
TestDesktop::~TestDesktop() = default;

Desktop TestDesktop::capabilities()
{
    Desktop desktop;
    desktop.clock = std::make_unique<TestClock>(*this);
    desktop.timers = std::make_unique<TestTimers>(*this);
    desktop.program = std::make_unique<TestProgram>(*this);
    desktop.files = std::make_unique<PosixFiles>();
    desktop.preferences = std::make_unique<StoreInMemory>(*this);
    desktop.alerts = std::make_unique<NotedAlerts>(*this);
    desktop.sounds = std::make_unique<NotedSounds>(*this);
    desktop.windows = std::make_unique<NotedWindows>(*this);
    desktop.session = std::make_unique<NotedSession>(*this);
    desktop.compositor = std::make_unique<TestCompositor>(*this);
    desktop.appearance = std::make_unique<TestAppearance>(*this);
    desktop.folderChooser = std::make_unique<InstantChooser>(*this);
    auto packages = std::make_unique<TestPackageManager>();
    packageManager = packages.get();
    desktop.packageManager = std::move(packages);
    m_clock = desktop.clock.get();
    m_compositor = desktop.compositor.get();
    m_appearance = desktop.appearance.get();
    return desktop;
}

void TestDesktop::setClock(const QDateTime &time)
{
    now = time;
    emit m_clock->wasSet();
}

void TestDesktop::setZone(const char *name)
{
    TimeZone::use(name);
    emit m_clock->zoneChanged();
}

void TestDesktop::setComposited(bool composited)
{
    isComposited = composited;
    emit m_compositor->changed();
}

void TestDesktop::setColorScheme(ColorScheme scheme)
{
    colorScheme = scheme;
    emit m_appearance->changed();
}
