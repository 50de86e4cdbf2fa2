// SPDX-License-Identifier: MIT
#pragma once

#include <QDateTime>
#include <QObject>

/// Tells the time of day.
class Clock : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(Clock)

public:
    using QObject::QObject;

    /// The present moment as an instant: always in UTC, so that it survives a change of time zone.
    [[nodiscard]] virtual QDateTime now() const = 0;

signals:
    /// The time of day jumped: somebody set the clock, or the computer woke up.
    void wasSet();
    /// An instant may have to be shown anew, in another time zone.
    void zoneChanged();
};
