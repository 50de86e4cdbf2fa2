// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

class QSocketNotifier;

/// Tells when a link, not what it leads to, is replaced, removed or made; a file in its place also
/// when it is written. Other files of its folder wake nobody, unless the link is missing.
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
    void takeEvents();
    [[nodiscard]] bool hasNews() const;

    QByteArray m_path;
    QByteArray m_folder;
    int m_descriptor;
    int m_watch = -1;
    bool m_isThere = false;
    QSocketNotifier *m_notifier = nullptr;
};
