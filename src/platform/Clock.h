// SPDX-License-Identifier: MIT
#pragma once

#include <QDateTime>
#include <QObject>

/// The system's clock.
class Clock : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(Clock)

public:
    using QObject::QObject;

    /// The current time, always in UTC, so that it stays valid when the time zone changes.
    [[nodiscard]] virtual QDateTime now() const = 0;

signals:
    /// The clock changed by a jump: somebody set it, or the computer woke up.
    void wasSet();
    /// The time zone may have changed, so displayed times must be updated.
    void zoneChanged();
};
