// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractNativeEventFilter>
#include <QObject>

#include <xcb/xcb.h>

/// Watches whether a selection of the X server has an owner. Window managers, compositors and trays
/// announce themselves by owning one (ICCCM 2.8, EWMH). Without an X server, there is never an
/// owner.
class SelectionOwner final : public QObject, QAbstractNativeEventFilter
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(SelectionOwner)

public:
    /// The screen number is appended to @p prefix: "_NET_WM_CM_S" becomes "_NET_WM_CM_S0".
    explicit SelectionOwner(const QByteArray &prefix, QObject *parent = nullptr);
    ~SelectionOwner() override;

    [[nodiscard]] bool exists() const { return m_exists; }

signals:
    void changed();

private:
    bool nativeEventFilter(const QByteArray &type, void *message, qintptr *result) override;

    xcb_atom_t m_selection = XCB_ATOM_NONE;
    uint8_t m_notifyEvent = 0;
    bool m_exists = false;
};
