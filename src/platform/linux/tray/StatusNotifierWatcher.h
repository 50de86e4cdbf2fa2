// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>

/// Finds the desktop's StatusNotifier hosts and registers an item with them, without blocking: a
/// watcher may appear late, disappear, be replaced or not answer.
class StatusNotifierWatcher final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(StatusNotifierWatcher)

public:
    /// @p bus must be connected.
    StatusNotifierWatcher(const QDBusConnection &bus, QObject *parent);

    enum class Hosts { Unknown, None, Some };
    /// The watcher's last answer; None if there is no watcher, Unknown until it has answered.
    [[nodiscard]] Hosts hosts() const { return m_hosts; }

signals:
    void hostsChanged();

private slots:
    void watcherSignalled(const QDBusMessage &message);

private:
    void claimName();
    void watch();
    void ask();
    void answerArrived(const QDBusMessage &reply);
    void setHosts(Hosts hosts);
    void registerItem();

    QDBusConnection m_bus;
    /// The bus name that the item is registered under.
    QString m_name;
    Hosts m_hosts = Hosts::Unknown;
    /// The number of the last question; answers to earlier ones are ignored.
    int m_question = 0;
};
