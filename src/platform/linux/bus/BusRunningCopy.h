// SPDX-License-Identifier: MIT
#pragma once

#include "platform/RunningCopy.h"

#include <QVariantMap>

/// The copy that owns the session bus name org.tovla.Tovla. Where there is no session bus, every
/// copy takes itself for the first.
class BusRunningCopy final : public RunningCopy
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(BusRunningCopy)
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    BusRunningCopy();

    void claim() override;

public slots: // NOLINT(readability-redundant-access-specifiers): what is exported to the bus
    /// The methods of org.freedesktop.Application (freedesktop.org, desktop entries, D-Bus
    /// activation).
    void Activate(const QVariantMap &platformData);
    void Open(const QStringList &uris, const QVariantMap &platformData);
    void ActivateAction(const QString &action, const QVariantList &parameter,
                        const QVariantMap &platformData);

private:
    void askOtherToComeForward();
    /// The bus starts a program only to activate it; that first call says nothing more than the
    /// start itself did.
    [[nodiscard]] bool isTheLaunchItself();

    bool m_wasStartedByBus;
};
