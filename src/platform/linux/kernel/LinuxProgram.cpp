// SPDX-License-Identifier: MIT
#include "platform/linux/kernel/LinuxProgram.h"

#include <QFile>
#include <QGuiApplication>
#include <QSessionManager>
#include <QSocketNotifier>

#include <csignal>
#include <cstdio>
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

/// Notes that the program has been told to end, by its menu, by the session or by us.
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

/// A saved session would start Tovla beside the one that the user has started at login.
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
} // namespace

void LinuxProgram::prepare()
{
    ownPath() = QFile::symLinkTarget(QStringLiteral("/proc/self/exe"));
    // Wayland lets no window place, raise or float itself; through XWayland ours can.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "xcb;wayland");
    }
    // glibc raises this limit by itself to the largest piece that was freed, and then keeps the
    // pictures of windows that are gone in its heap (mallopt(3)). Bytes.
    mallopt(M_MMAP_THRESHOLD, 128 * 1024);
    // A write beyond the user's file-size limit then fails with EFBIG instead of ending us.
    std::signal(SIGXFSZ, SIG_IGN);
    std::signal(SIGPIPE, SIG_IGN);
    // Before any thread is started, since each inherits the mask; endOnRequest reads them.
    const sigset_t ending = endingSignals();
    pthread_sigmask(SIG_BLOCK, &ending, nullptr);
}

QString LinuxProgram::path() const
{
    return ownPath();
}

bool LinuxProgram::canRestart() const
{
    return access(QFile::encodeName(ownPath()), X_OK) == 0;
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
        // This closes all connections, and with them frees the name of the one running copy before
        // the new one, which has to greet the bus first, can ask for it.
        // That the bus started the old one means nothing for the new one.
        qunsetenv("DBUS_STARTER_BUS_TYPE");
        qunsetenv("DBUS_STARTER_ADDRESS");
        execv(QFile::encodeName(ownPath()), argv);
        std::perror("tovla: could not be started again");
    }
    return exitStatus;
}

LinuxProgram::LinuxProgram()
{
    qGuiApp->installEventFilter(new EndWatcher(qGuiApp));
    stayOutOfSavedSessions();
    endOnSignals();
}
