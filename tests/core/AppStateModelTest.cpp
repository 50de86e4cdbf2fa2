// SPDX-License-Identifier: MIT
// Any order of what can happen to the state, against a model of it. A failing order is shortened to
// what still fails, and printed. TOVLA_SEED and TOVLA_SEQUENCES choose others and more of them.
#include "support/AppStateForTests.h"

#include <QDir>
#include <QFile>
#include <QPlainTextEdit>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

#include <array>

using namespace Qt::StringLiterals;

namespace
{
enum class Kind {
    chooseFolder,
    forgetFolder,
    setInterval,
    setTheme,
    setSound,
    pass, // seconds; the machine may sleep meanwhile
    setClock,
    setZone,
    writeNow,
    save,
    cancel,
    openSettings,
};

constexpr std::array kinds{std::pair(Kind::chooseFolder, "choose folder"),
                           std::pair(Kind::forgetFolder, "forget folder"),
                           std::pair(Kind::setInterval, "set interval"),
                           std::pair(Kind::setTheme, "set theme"),
                           std::pair(Kind::setSound, "set sound"),
                           std::pair(Kind::pass, "pass"),
                           std::pair(Kind::setClock, "set clock"),
                           std::pair(Kind::setZone, "set zone"),
                           std::pair(Kind::writeNow, "write now"),
                           std::pair(Kind::save, "save"),
                           std::pair(Kind::cancel, "cancel"),
                           std::pair(Kind::openSettings, "open settings")};

struct Step {
    Kind kind;
    qint64 value;
};
using Steps = QList<Step>;

constexpr std::array zones{"UTC", "Europe/Berlin", "Asia/Kathmandu", "America/St_Johns"};

QString printed(const Steps &steps)
{
    QStringList lines;
    for (const Step &step : steps) {
        const auto *const named
            = std::ranges::find(kinds, step.kind, &decltype(kinds)::value_type::first);
        lines.append(QLatin1String(named->second) + u' ' + QString::number(step.value));
    }
    return lines.join(u'\n');
}

/// The state as it should be: a timer is an interval and what remains of it.
struct Model {
    QString folder;
    qint64 interval = 60;
    ThemePreference theme = ThemePreference::system;
    QString sound = u"Purr"_s;
    std::optional<qint64> timerInterval; // in seconds
    qint64 remaining = 0;
    std::optional<QDateTime> next;
    std::optional<QDateTime> openedAt;
    /// The time as it was when the prompt opened, whatever the zone is later.
    QString title;
    QMap<QString, QByteArray> files;
    qsizetype alerts = 0;

    void restart(const QDateTime &now)
    {
        timerInterval = folder.isEmpty() ? std::nullopt : std::optional(interval * 60);
        remaining = timerInterval.value_or(0);
        next = timerInterval ? std::optional(now.addSecs(*timerInterval)) : std::nullopt;
    }

    void write(const QString &note)
    {
        if (folder.isEmpty()) {
            return;
        }
        const QDateTime local = openedAt->toLocalTime();
        const QString day = local.toString(u"yyyy-MM-dd"_s);
        QByteArray &file = files[folder + u'/' + day + u".md"_s];
        file += file.isEmpty() ? "# " + day.toUtf8() + "\n\n" : QByteArray("\n");
        file += "## " + local.toString(u"HH:mm"_s).toUtf8() + '\n' + note.toUtf8() + '\n';
    }
};

/// One run of a sequence on a desktop of its own.
class Run final
{
public:
    /// What differed first; empty if nothing did.
    [[nodiscard]] QString of(const Steps &steps)
    {
        m_desktop.setZone(zones.front());
        for (const Step &step : steps) {
            act(step);
            if (QString difference = compared(); !difference.isEmpty()) {
                return difference;
            }
        }
        return {};
    }

private:
    void act(const Step &step)
    {
        switch (step.kind) {
        case Kind::chooseFolder:
            m_model.folder = m_place.filePath(u"Journal%1"_s.arg(step.value % 2));
            (*m_state)->setFolderPath(m_model.folder);
            restart();
            break;
        case Kind::forgetFolder:
            m_model.folder.clear();
            (*m_state)->setFolderPath({});
            restart();
            break;
        case Kind::setInterval:
            m_model.interval = step.value % 90 + 1;
            (*m_state)->setIntervalMinutes(m_model.interval);
            restart();
            break;
        case Kind::setTheme:
            m_model.theme = static_cast<ThemePreference>(step.value % 3);
            (*m_state)->setTheme(m_model.theme);
            break;
        case Kind::setSound:
            m_model.sound = AppState::availableSounds().at(step.value % 14);
            (*m_state)->setSoundName(m_model.sound);
            break;
        case Kind::pass:
            pass(step.value % 20000);
            break;
        case Kind::setClock:
            setClock(step.value % 400000 - 200000);
            break;
        case Kind::setZone:
            m_desktop.setZone(zones.at(static_cast<size_t>(step.value) % zones.size()));
            break;
        case Kind::writeNow:
            (*m_state)->showPrompt();
            promptOpens();
            break;
        case Kind::save:
            save(u"note %1\nand more"_s.arg(step.value));
            break;
        case Kind::cancel:
            if (m_model.openedAt) {
                press(Qt::Key_Escape);
                m_model.openedAt.reset();
            }
            break;
        case Kind::openSettings:
            (*m_state)->showSettings();
            break;
        }
    }

    void restart()
    {
        m_model.restart(m_desktop.now);
        m_desktop.timerRemaining = std::chrono::seconds(m_model.remaining);
    }

    void promptOpens()
    {
        if (!m_model.openedAt) {
            m_model.openedAt = m_desktop.now;
            m_model.title = m_desktop.now.toLocalTime().toString(u"HH:mm"_s);
        }
    }

    /// The timer fires once at most, however many intervals have passed.
    void pass(qint64 seconds)
    {
        m_desktop.now = m_desktop.now.addSecs(seconds);
        if (!m_model.timerInterval) {
            return;
        }
        const bool isDue = seconds >= m_model.remaining;
        m_model.remaining -= seconds;
        if (isDue) {
            m_model.remaining
                = *m_model.timerInterval - (-m_model.remaining) % *m_model.timerInterval;
            m_model.next = m_desktop.now.addSecs(*m_model.timerInterval);
        }
        m_desktop.timerRemaining = std::chrono::seconds(m_model.remaining);
        if (isDue) {
            m_desktop.fireTimer();
            promptOpens();
        }
    }

    void setClock(qint64 seconds)
    {
        const QDateTime time = m_desktop.now.addSecs(seconds);
        if (m_model.timerInterval) {
            m_model.next = time.addSecs(m_model.remaining);
        }
        m_desktop.setClock(time);
    }

    void save(const QString &note)
    {
        if (!m_model.openedAt) {
            return;
        }
        editor()->setPlainText(u" \n"_s + note + u"\n "_s);
        press(Qt::Key_Return, Qt::ControlModifier);
        m_model.write(note);
        m_model.alerts += m_model.folder.isEmpty() ? 1 : 0;
        m_model.openedAt.reset();
    }

    [[nodiscard]] QPlainTextEdit *editor() const
    {
        return m_state->promptWindow()->findChild<QPlainTextEdit *>();
    }

    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QWidget *const prompt = m_state->promptWindow();
        prompt->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(prompt));
        QTest::keyClick(editor(), key, modifiers);
    }

    [[nodiscard]] QString compared()
    {
        AppState &state = **m_state;
        const QWidget *const prompt = state.openPrompt();
        const auto isOpen = m_model.openedAt.has_value();
        const std::array<std::pair<const char *, bool>, 11> checks{{
            {"folder",
             state.folderPath() == m_model.folder
                 && m_desktop.stored.value(u"folderPath"_s) == m_model.folder},
            {"interval", state.intervalMinutes() == m_model.interval},
            {"theme", state.theme() == m_model.theme},
            {"sound", state.soundName() == m_model.sound},
            {"next prompt", state.nextPromptDate() == m_model.next},
            {"timer",
             m_desktop.timerInterval.has_value() == m_model.timerInterval.has_value()
                 && (!m_model.timerInterval
                     || m_desktop.timerInterval->count() == *m_model.timerInterval)},
            {"status",
             state.statusLine()
                 == u"Every %1 min → %2"_s.arg(m_model.interval)
                        .arg(m_model.folder.section(u'/', -1))},
            {"prompt", (prompt != nullptr) == isOpen},
            {"title", prompt == nullptr || prompt->windowTitle() == m_model.title},
            {"alerts", m_desktop.alerts.size() == m_model.alerts},
            {"files", files() == m_model.files},
        }};
        const auto *const wrong
            = std::ranges::find(checks, false, &std::pair<const char *, bool>::second);
        return wrong == checks.end() ? QString() : QLatin1String(wrong->first);
    }

    [[nodiscard]] QMap<QString, QByteArray> files() const
    {
        QMap<QString, QByteArray> found;
        for (const QString &folder : {u"Journal0"_s, u"Journal1"_s}) {
            const QDir dir(m_place.filePath(folder));
            for (const QFileInfo &info : dir.entryInfoList(QDir::Files | QDir::Hidden)) {
                QFile file(info.filePath());
                if (file.open(QIODevice::ReadOnly)) {
                    found.insert(info.filePath(), file.readAll());
                }
            }
        }
        return found;
    }

    QTemporaryDir m_place;
    TestDesktop m_desktop;
    std::unique_ptr<AppStateForTests> m_state = std::make_unique<AppStateForTests>(m_desktop);
    Model m_model;
};

Steps randomSteps(QRandomGenerator &random)
{
    Steps steps;
    const int count = random.bounded(1, 13);
    for (int i = 0; i < count; ++i) {
        const auto kind
            = kinds.at(static_cast<size_t>(random.bounded(static_cast<int>(kinds.size()))));
        steps.append({kind.first, random.bounded(1000000)});
    }
    return steps;
}

/// Leaves out every step without which it still fails.
Steps shortened(Steps steps)
{
    for (qsizetype i = steps.size() - 1; i >= 0; --i) {
        Steps fewer = steps;
        fewer.removeAt(i);
        if (!Run().of(fewer).isEmpty()) {
            steps = fewer;
        }
    }
    return steps;
}
} // namespace

class AppStateModelTest final : public QObject
{
    Q_OBJECT

private slots:
    void anyOrder_agreesWithTheModel()
    {
        const int sequences = qEnvironmentVariable("TOVLA_SEQUENCES", u"10000"_s).toInt();
        const uint seed = qEnvironmentVariable("TOVLA_SEED", u"1"_s).toUInt();
        QRandomGenerator random(seed);
        for (int i = 0; i < sequences; ++i) {
            const Steps steps = randomSteps(random);
            if (!Run().of(steps).isEmpty()) {
                const Steps few = shortened(steps);
                QFAIL(qPrintable(u"%1 differs after\n%2"_s.arg(Run().of(few), printed(few))));
            }
            // Closed windows are deleted from the event loop.
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
    }
};

QTEST_MAIN(AppStateModelTest)
#include "AppStateModelTest.moc"
