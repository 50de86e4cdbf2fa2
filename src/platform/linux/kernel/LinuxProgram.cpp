// SPDX-License-Identifier: MIT
#include "platform/linux/kernel/LinuxProgram.h"

#include <QFile>
#include <QGuiApplication>
#include <QLoggingCategory>
#include <QSessionManager>
#include <QSocketNotifier>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <malloc.h>
#include <sys/signalfd.h>
#include <unistd.h>

namespace
{
sigset_t endingSignals()
{
    sigset_t ending;
    sigemptyset(&ending);
    for (const int number : {SIGTERM, SIGINT, SIGHUP}) {
        sigaddset(&ending, number);
    }
    return ending;
}

QString &ownPath()
{
    static QString path;
    return path;
}

bool isRestartWanted = false;
bool isEnding = false;

/// Notices when the program is told to quit, from its menu, by the session or by our own code.
class EndWatcher final : public QObject
{
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        isEnding = isEnding || event->type() == QEvent::Quit;
        return false;
    }
};

/// Without this, a saved session would start Tovla in addition to the copy that the user starts at
/// login.
void stayOutOfSavedSessions()
{
    const auto neverRestart
        = [](QSessionManager &session) { session.setRestartHint(QSessionManager::RestartNever); };
    QObject::connect(qGuiApp, &QGuiApplication::saveStateRequest, qGuiApp, neverRestart);
    QObject::connect(qGuiApp, &QGuiApplication::commitDataRequest, qGuiApp, neverRestart);
}

void endOnSignals()
{
    const sigset_t ending = endingSignals();
    const int descriptor = signalfd(-1, &ending, SFD_NONBLOCK | SFD_CLOEXEC);
    if (descriptor < 0) {
        pthread_sigmask(SIG_UNBLOCK, &ending, nullptr);
        return;
    }
    auto *const notifier = new QSocketNotifier(descriptor, QSocketNotifier::Read, qGuiApp);
    QObject::connect(notifier, &QSocketNotifier::activated, qGuiApp, [] {
        isEnding = true;
        QCoreApplication::exit(0);
    });
}

/// Handles messages until the application object exists: without a display, the toolkit would print
/// several lines and abort with a core dump.
void endInOneLine(QtMsgType type, const QMessageLogContext &, const QString &)
{
    if (type == QtFatalMsg) {
        std::fputs("tovla: cannot connect to a display: check DISPLAY and WAYLAND_DISPLAY\n",
                   stderr);
        std::_Exit(EXIT_FAILURE);
    }
}
} // namespace

void LinuxProgram::prepare()
{
    qInstallMessageHandler(endInOneLine);
    // Screen readers keep querying closed windows, and the toolkit would log hundreds of warnings a
    // day.
    QLoggingCategory::setFilterRules(QStringLiteral("qt.accessibility.atspi.warning=false"));
    ownPath() = QFile::symLinkTarget(QStringLiteral("/proc/self/exe"));
    // On Wayland, windows cannot place, raise or float themselves, but through XWayland they can.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "xcb;wayland");
    }
    // In bytes. By default, glibc raises this limit to the size of the largest freed block, and
    // then keeps the memory of closed windows' images in its heap (mallopt(3)).
    mallopt(M_MMAP_THRESHOLD, 128 * 1024);
    // Makes a write beyond the user's file size limit fail with EFBIG instead of killing the
    // program.
    std::signal(SIGXFSZ, SIG_IGN);
    std::signal(SIGPIPE, SIG_IGN);
    // Must come before any thread is started, because threads inherit the mask. endOnSignals reads
    // the signals.
    const sigset_t ending = endingSignals();
    pthread_sigmask(SIG_BLOCK, &ending, nullptr);
}

QString LinuxProgram::path() const
{
    return ownPath();
}

bool LinuxProgram::canRestart() const
{
    return access(QFile::encodeName(ownPath()).constData(), X_OK) == 0;
}

void LinuxProgram::restart()
{
    if (!isEnding) {
        isRestartWanted = true;
        QCoreApplication::quit();
    }
}

int LinuxProgram::end(int exitStatus, char **argv)
{
    if (isRestartWanted) {
        // execv closes all connections, which releases the bus name before the new program can
        // request it. The variables mean that D-Bus started the program, which is true of the old
        // one only.
        qunsetenv("DBUS_STARTER_BUS_TYPE");
        qunsetenv("DBUS_STARTER_ADDRESS");
        execv(QFile::encodeName(ownPath()).constData(), argv);
        std::perror("tovla: could not be started again");
    }
    return exitStatus;
}

LinuxProgram::LinuxProgram()
{
    qInstallMessageHandler(nullptr);
    qGuiApp->installEventFilter(new EndWatcher(qGuiApp));
    stayOutOfSavedSessions();
    endOnSignals();
}
