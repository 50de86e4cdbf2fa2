// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Clock.h"

class QSocketNotifier;

/// The kernel's clock, which signals when it is set (timerfd_create(2), TFD_TIMER_CANCEL_ON_SET),
/// and the system's time zone, a symbolic link that is replaced to change it (localtime(5)).
class SystemClock final : public Clock
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(SystemClock)

public:
    explicit SystemClock(QString zonePath = QStringLiteral("/etc/localtime"));
    ~SystemClock() override;

    [[nodiscard]] QDateTime now() const override { return QDateTime::currentDateTimeUtc(); }

protected:
    void connectNotify(const QMetaMethod &signal) override;

private:
    void watchZone();
    void readTimer();

    QString m_zonePath;
    bool m_watchesZone = false;
    int m_descriptor;
    QSocketNotifier *m_notifier;
};
