// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Alerts.h"

struct Desktop;

/// Alerts in the look of our own windows, for platforms without suitable alerts.
class DrawnAlerts final : public Alerts
{
public:
    /// @p desktop must outlive this object.
    explicit DrawnAlerts(const Desktop &desktop)
        : m_desktop(desktop)
    {
    }

    void warn(const QString &messageText, const QString &informativeText, QWidget *over) override;

private:
    const Desktop &m_desktop;
};
