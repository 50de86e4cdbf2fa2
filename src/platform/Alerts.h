// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QtGlobal>

class QWidget;

/// Tells the user what they must know before they can go on.
class Alerts
{
public:
    Alerts() = default;
    virtual ~Alerts() = default;
    Q_DISABLE_COPY_MOVE(Alerts)

    /// Shows a warning that is modal to the whole application, with one default button, above
    /// @p over (may be null) and with the keyboard; returns once the user has dismissed it.
    /// Timers go on meanwhile. Both texts are plain.
    virtual void warn(const QString &messageText, const QString &informativeText, QWidget *over)
        = 0;
};
