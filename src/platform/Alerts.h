// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QtGlobal>

class QWidget;

/// Shows messages that the user must read before continuing. No platform implements this yet:
/// TovlaApp installs look/DrawnAlerts.
class Alerts
{
public:
    Alerts() = default;
    virtual ~Alerts() = default;
    Q_DISABLE_COPY_MOVE(Alerts)

    /// Shows a warning above @p over (may be null). It is modal to the whole application, has one
    /// default button and gets keyboard focus. Returns when the user has dismissed it; timers keep
    /// running meanwhile. Both texts are plain text.
    virtual void warn(const QString &messageText, const QString &informativeText, QWidget *over)
        = 0;
};
