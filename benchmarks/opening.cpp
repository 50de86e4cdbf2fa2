// SPDX-License-Identifier: MIT
// Compares what a prompt costs with a bare window around the toolkit's plain text widget, in the
// same run: from the request until it is painted and has the keyboard, growing by a line, and
// saving. Needs a display with a window manager; uses the preferences and the home that it finds.
#include "core/AppState.h"
#include "look/Fonts.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <fcntl.h>
#include <functional>
#include <memory>
#include <unistd.h>
#include <vector>

namespace
{
constexpr int rounds = 30;

/// Counts the times that a window was painted.
class Paints final : public QObject
{
public:
    int count = 0;

private:
    bool eventFilter(QObject *, QEvent *event) override
    {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
};

struct Cost {
    double processor = 0; // milliseconds of this process's processor time
    double wall = 0; // milliseconds
};

Cost costOf(const std::function<void()> &act)
{
    timespec before{};
    timespec after{};
    QElapsedTimer wall;
    wall.start();
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &before);
    act();
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &after);
    return {.processor = static_cast<double>(after.tv_sec - before.tv_sec) * 1e3
                + static_cast<double>(after.tv_nsec - before.tv_nsec) / 1e6,
            .wall = static_cast<double>(wall.nsecsElapsed()) / 1e6};
}

void waitUntil(const std::function<bool()> &isTrue)
{
    while (!isTrue()) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
}

/// What is measured: a window around a text field that opens, grows and saves.
class Note
{
public:
    Note() = default;
    virtual ~Note() = default;
    Q_DISABLE_COPY_MOVE(Note)

    virtual void show() = 0;
    virtual void save() = 0;
    [[nodiscard]] virtual QWidget *window() const = 0;

    [[nodiscard]] QPlainTextEdit *editor() const { return window()->findChild<QPlainTextEdit *>(); }

    void open()
    {
        Paints paints;
        show();
        window()->installEventFilter(&paints);
        waitUntil([&] { return paints.count > 0 && editor()->hasFocus(); });
    }

    void grow() const
    {
        const int before = window()->height();
        const int line = editor()->cursorRect().height();
        QKeyEvent press(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"));
        QCoreApplication::sendEvent(editor(), &press);
        Paints paints;
        window()->installEventFilter(&paints);
        waitUntil([&] { return window()->height() == before + line && paints.count > 0; });
    }
};

class Prompt final : public Note
{
public:
    explicit Prompt(AppState &state)
        : m_state(state)
    {
    }
    void show() override { m_state.showPrompt(); }
    void save() override
    {
        QKeyEvent submit(QEvent::KeyPress, Qt::Key_Return, Qt::ControlModifier,
                         QStringLiteral("\r"));
        QCoreApplication::sendEvent(editor(), &submit);
    }
    [[nodiscard]] QWidget *window() const override { return m_state.openPrompt(); }

private:
    AppState &m_state;
};

/// As much as the toolkit needs for the same, without animation and with the smallest safe save.
class BareNote final : public Note
{
public:
    explicit BareNote(const QString &folder)
        : m_path(QFile::encodeName(folder + QStringLiteral("/bare.md")))
    {
    }
    void show() override
    {
        m_window = std::make_unique<QWidget>(
            nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
        m_window->setAttribute(Qt::WA_TranslucentBackground);
        m_window->setGeometry(300, 200, 560, 104);
        auto *const text = new QPlainTextEdit(m_window.get());
        text->setFont(systemFont(FontSizes::note));
        text->setGeometry(33, 56, 494, 21);
        QObject::connect(text, &QPlainTextEdit::blockCountChanged, text, [this, text](int) {
            const int line = text->cursorRect().height();
            text->resize(text->width(), text->height() + line);
            m_window->resize(560, m_window->height() + line);
        });
        m_window->show();
        m_window->activateWindow();
        text->setFocus();
    }
    void save() override
    {
        const int file
            = ::open(m_path.constData(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0666);
        const QByteArray note = editor()->toPlainText().toUtf8();
        if (::write(file, note.constData(), static_cast<size_t>(note.size())) < 0
            || ::fsync(file) < 0) {
            std::perror("the bare note was not saved");
        }
        ::close(file);
        m_window.reset();
    }
    [[nodiscard]] QWidget *window() const override { return m_window.get(); }

private:
    QByteArray m_path;
    std::unique_ptr<QWidget> m_window;
};

struct Costs {
    std::vector<Cost> opening;
    std::vector<Cost> growth;
    std::vector<Cost> saving;
};

void measure(Note &note, Costs &costs)
{
    costs.opening.push_back(costOf([&] { note.open(); }));
    note.editor()->insertPlainText(QStringLiteral("Long walk afterwards."));
    QCoreApplication::processEvents();
    costs.growth.push_back(costOf([&] { note.grow(); }));
    costs.saving.push_back(costOf([&] { note.save(); }));
    QCoreApplication::processEvents();
}

double median(const std::vector<Cost> &costs, double Cost::*part)
{
    std::vector<double> values;
    values.reserve(costs.size());
    for (const Cost &cost : costs) {
        values.push_back(cost.*part);
    }
    std::ranges::sort(values);
    return values.at(values.size() / 2);
}

void print(const char *what, double ours, double bare)
{
    std::printf("| %s | %.2f | %.2f | %.2f |\n", what, ours, bare, ours / bare);
}
} // namespace

int main(int argc, char *argv[])
{
    Desktop::prepare();
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const QTemporaryDir folder;
    AppState &state = AppState::shared();
    state.setSoundName(QString()); // measured on machines without a sound server too
    state.setFolderPath(folder.path());

    Prompt prompt(state);
    BareNote bare(folder.path());
    Costs ours;
    Costs theirs;
    for (int round = 0; round <= rounds; ++round) {
        measure(prompt, ours);
        measure(bare, theirs);
    }
    print("the first prompt, painted, ms", ours.opening.front().wall, theirs.opening.front().wall);
    const auto compare
        = [&](const char *what, std::vector<Cost> Costs::*costs, double Cost::*part) {
              print(what, median(ours.*costs, part), median(theirs.*costs, part));
          };
    compare("a later prompt, painted, ms", &Costs::opening, &Cost::wall);
    compare("a later prompt, ms of processor time", &Costs::opening, &Cost::processor);
    compare("growing by a line, ms of processor time", &Costs::growth, &Cost::processor);
    compare("saving, ms", &Costs::saving, &Cost::wall);
    return 0;
}
