// SPDX-License-Identifier: MIT
#include "platform/linux/kernel/LinkWatcher.h"

#include <QFile>
#include <QFileInfo>
#include <QSocketNotifier>

#include <array>
#include <cstring>
#include <sys/inotify.h>
#include <unistd.h>

LinkWatcher::LinkWatcher(const QString &path, QObject *parent)
    : QObject(parent)
    , m_path(QFile::encodeName(path))
    , m_folder(QFile::encodeName(QFileInfo(path).path()))
    , m_descriptor(inotify_init1(IN_NONBLOCK | IN_CLOEXEC))
{
    if (m_descriptor < 0) {
        return; // the user's inotify limit has been reached
    }
    watch();
    m_notifier = new QSocketNotifier(m_descriptor, QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, &LinkWatcher::readEvents);
}

LinkWatcher::~LinkWatcher()
{
    if (m_notifier) {
        m_notifier->setEnabled(false);
        close(m_descriptor);
    }
}

void LinkWatcher::watch()
{
    m_isThere = watchLink();
    if (m_isThere) {
        return;
    }
    m_watch = inotify_add_watch(m_descriptor, m_folder.constData(),
                                IN_CREATE | IN_MOVED_TO | IN_ONLYDIR);
    const int folderWatch = m_watch;
    m_isThere = watchLink(); // the link may have appeared just before
    if (m_isThere) {
        inotify_rm_watch(m_descriptor, folderWatch);
    }
}

bool LinkWatcher::watchLink()
{
    // IN_ATTRIB includes the link count, which decreases when another link replaces this one.
    const int added = inotify_add_watch(m_descriptor, m_path.constData(),
                                        IN_ATTRIB | IN_MOVE_SELF | IN_DELETE_SELF | IN_CLOSE_WRITE
                                            | IN_DONT_FOLLOW);
    if (added >= 0) {
        m_watch = added;
    }
    return added >= 0;
}

void LinkWatcher::readEvents()
{
    if (!hasNews()) {
        return;
    }
    const bool wasThere = m_isThere;
    inotify_rm_watch(m_descriptor, m_watch);
    watch();
    if (wasThere || m_isThere) {
        emit changed();
    }
}

/// Reads all pending events and returns whether one of them concerns the current watch.
bool LinkWatcher::hasNews() const
{
    bool isNews = false;
    alignas(inotify_event) std::array<char, 4096> buffer{};
    ssize_t size = 0;
    while ((size = read(m_descriptor, buffer.data(), buffer.size())) > 0) {
        for (ssize_t position = 0; position < size;) {
            inotify_event event{};
            std::memcpy(&event, buffer.data() + position, sizeof event);
            // A removed watch still sends a last event.
            const bool isOver = event.wd != m_watch || (event.mask & IN_IGNORED) != 0;
            isNews = isNews || !isOver || (event.mask & IN_Q_OVERFLOW) != 0;
            position += ssize_t{sizeof event} + event.len;
        }
    }
    return isNews;
}
