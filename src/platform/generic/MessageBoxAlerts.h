// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Alerts.h"

class Windows;

class MessageBoxAlerts final : public Alerts
{
public:
    /// @p windows must outlive this.
    explicit MessageBoxAlerts(Windows &windows)
        : m_windows(windows)
    {
    }

    void warn(const QString &messageText, const QString &informativeText, QWidget *over) override;

private:
    Windows &m_windows;
};
