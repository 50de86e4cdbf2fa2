// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

class QSocketNotifier;

/// Signals when a symbolic link itself, not its target, is replaced, removed or created; if there
/// is a regular file in its place, also when that is written. Other files in the folder do not wake
/// the program, unless the link is missing.
class LinkWatcher final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(LinkWatcher)

public:
    LinkWatcher(const QString &path, QObject *parent);
    ~LinkWatcher() override;

signals:
    void changed();

private:
    void watch();
    [[nodiscard]] bool watchLink();
    void readEvents();
    [[nodiscard]] bool hasNews() const;

    QByteArray m_path;
    QByteArray m_folder;
    int m_descriptor;
    int m_watch = -1;
    bool m_isThere = false;
    QSocketNotifier *m_notifier = nullptr;
};
