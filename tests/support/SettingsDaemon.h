// SPDX-License-Identifier: MIT
#pragma once

#include "support/X11Peer.h"
#include "support/XSettingsProperty.h"

/// Stands in for the desktop's settings daemon, until it is destroyed. Publishes settings in the
/// form of XSettingsProperty.
class SettingsDaemon final
{
public:
    explicit SettingsDaemon(const QByteArray &settings)
    {
        publish(settings);
        m_peer.own("_XSETTINGS_S0");
        m_peer.announce("_XSETTINGS_S0");
    }

    void publish(const QByteArray &settings)
    {
        m_peer.setText(m_peer.window(), "_XSETTINGS_SETTINGS", settings);
    }

private:
    X11Peer m_peer;
};

/// One setting, which is a text.
inline QByteArray textSetting(const QByteArray &name, const QByteArray &text)
{
    return XSettingsProperty(QDataStream::LittleEndian, 1)
        .name(XSettingsProperty::string, name)
        .text(text)
        .bytes();
}
