// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Appearance.h"

#include <QDBusMessage>
#include <QVariant>

#include <memory>
#include <optional>

/// The appearance settings from the desktop's settings portal (org.freedesktop.appearance), updated
/// by its signal. Without a portal, or until it answers, the toolkit's palette determines whether
/// the desktop is light or dark.
class PortalAppearance final : public Appearance
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(PortalAppearance)

public:
    /// @p otherwise provides the settings that the portal does not.
    explicit PortalAppearance(std::unique_ptr<Appearance> otherwise);

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
    void connectToPortal();
    void readColorScheme();
    void readRest();
    void read(const QString &space, const QString &key);
    void adopt(const QString &key, const QVariant &value);

    /// nullopt if the portal has no preference or has not answered yet.
    std::optional<ColorScheme> m_colorScheme;
    std::unique_ptr<Appearance> m_otherwise;
    QColor m_accent;
    bool m_wantsHighContrast = false;
    bool m_wantsReducedMotion = false;
    bool m_hasAnimationsOff = false;
    bool m_isRestRead = false;
};
