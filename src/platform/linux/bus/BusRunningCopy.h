// SPDX-License-Identifier: MIT
#pragma once

#include "platform/RunningCopy.h"

#include <QVariantMap>

/// The first copy is the one that owns the session bus name org.tovla.Tovla. Without a session bus,
/// every copy acts as the first.
class BusRunningCopy final : public RunningCopy
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(BusRunningCopy)
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    /// Must be called before the application object is created, because that removes the launcher's
    /// startup notification from the environment.
    static void prepare();

    BusRunningCopy();

    void claim() override;
    [[nodiscard]] bool wasStartedByHand() const override { return m_wasStartedByHand; }

public slots: // NOLINT(readability-redundant-access-specifiers): what is exported to the bus
    /// The methods of org.freedesktop.Application (freedesktop.org, desktop entries, D-Bus
    /// activation).
    void Activate(const QVariantMap &platformData);
    void Open(const QStringList &uris, const QVariantMap &platformData);
    void ActivateAction(const QString &action, const QVariantList &parameter,
                        const QVariantMap &platformData);

private:
    void askOtherToComeForward();
    bool m_wasStartedByHand;
    /// If D-Bus started the program, the first call is the activation that caused the start, which
    /// needs no further action.
    bool m_ignoresNextActivation;
};
