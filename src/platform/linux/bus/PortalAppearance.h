// SPDX-License-Identifier: MIT
#pragma once

#include "platform/generic/ToolkitAppearance.h"

#include <QDBusMessage>
#include <QVariant>

#include <optional>

/// What the desktop's settings portal tells of the user's taste (org.freedesktop.appearance), kept
/// current by its signal. While there is no portal, or no answer yet, the palette tells light from
/// dark.
class PortalAppearance final : public ToolkitAppearance
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(PortalAppearance)

public:
    PortalAppearance();

    [[nodiscard]] ColorScheme colorScheme() const override;
    [[nodiscard]] QColor accent() const override { return m_accent; }
    [[nodiscard]] bool wantsHighContrast() const override { return m_wantsHighContrast; }
    [[nodiscard]] bool wantsReducedMotion() const override
    {
        return m_wantsReducedMotion || m_hasAnimationsOff;
    }
    void windowsWillOpen() override;

private slots:
    void settingChanged(const QDBusMessage &message);

private:
    void readColorScheme();
    void readRest();
    void read(const QString &space, const QString &key);
    void take(const QString &key, const QVariant &value);

    /// Nothing while the portal has no preference or has not answered.
    std::optional<ColorScheme> m_colorScheme;
    QColor m_accent;
    bool m_wantsHighContrast = false;
    bool m_wantsReducedMotion = false;
    bool m_hasAnimationsOff = false;
    bool m_isRestRead = false;
};
