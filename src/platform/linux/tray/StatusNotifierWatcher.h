// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>

/// Finds the desktop's StatusNotifier hosts and registers an item with them, asking without ever
/// waiting: a watcher may come late, go, be replaced or say nothing.
class StatusNotifierWatcher final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(StatusNotifierWatcher)

public:
    /// @p bus is connected.
    StatusNotifierWatcher(const QDBusConnection &bus, QObject *parent);

    enum class Hosts { Unknown, None, Some };
    /// As far as the watcher, if there is one, has told.
    [[nodiscard]] Hosts hosts() const { return m_hosts; }

signals:
    void hostsChanged();

private slots:
    void watcherSignalled(const QDBusMessage &message);

private:
    void ask();
    void take(const QDBusMessage &reply);
    void setHosts(Hosts hosts);
    void registerItem();

    QDBusConnection m_bus;
    Hosts m_hosts = Hosts::Unknown;
    /// Answers to earlier questions than this one no longer count.
    int m_question = 0;
};
