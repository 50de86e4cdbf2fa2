// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractNativeEventFilter>
#include <QHash>
#include <QObject>
#include <QVariant>

#include <xcb/xcb.h>

/// What the desktop's settings daemon publishes on the X server for programs of every toolkit, kept
/// current (freedesktop.org, XSETTINGS). Empty without an X server or a daemon.
class XSettings final : public QObject, QAbstractNativeEventFilter
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(XSettings)

public:
    explicit XSettings(QObject *parent = nullptr);
    ~XSettings() override;

    [[nodiscard]] QVariant value(const QByteArray &name) const { return m_values.value(name); }

    /// Asks the server by a connection of its own, before the application object exists.
    [[nodiscard]] static QHash<QByteArray, QVariant> readOnce();

signals:
    void changed();

private:
    bool nativeEventFilter(const QByteArray &type, void *message, qintptr *result) override;
    void follow(xcb_window_t owner);
    void refresh();

    xcb_window_t m_owner = XCB_WINDOW_NONE;
    QHash<QByteArray, QVariant> m_values;
};
