// SPDX-License-Identifier: MIT
#include "platform/linux/portal/PortalAppearance.h"

#include "platform/linux/bus/Bus.h"
#include "platform/linux/portal/Portal.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QDBusVariant>

namespace
{
const QString settingsInterface = QStringLiteral("org.freedesktop.portal.Settings");
const QString appearanceSpace = QStringLiteral("org.freedesktop.appearance");
const QString gnomeSpace = QStringLiteral("org.gnome.desktop.interface");

const QString colorSchemeKey = QStringLiteral("color-scheme");
const QString accentKey = QStringLiteral("accent-color");
const QString contrastKey = QStringLiteral("contrast");
const QString reducedMotionKey = QStringLiteral("reduced-motion");
// For portals that do not provide reduced-motion yet.
const QString animationsKey = QStringLiteral("enable-animations");

/// Needed because the portal's method Read returns a variant inside a variant.
QVariant unwrapped(QVariant value)
{
    while (value.metaType() == QMetaType::fromType<QDBusVariant>()) {
        value = value.value<QDBusVariant>().variant();
    }
    return value;
}

/// Parses three numbers from 0 to 1; anything else means that there is no accent colour.
QColor accentFrom(const QVariant &value)
{
    if (value.metaType() != QMetaType::fromType<QDBusArgument>()) {
        return {};
    }
    const auto argument = value.value<QDBusArgument>();
    if (argument.currentSignature() != u"(ddd)") {
        return {};
    }
    double red = -1;
    double green = -1;
    double blue = -1;
    argument.beginStructure();
    argument >> red >> green >> blue;
    argument.endStructure();
    const auto isFraction = [](double part) { return part >= 0 && part <= 1; };
    return isFraction(red) && isFraction(green) && isFraction(blue) ? QColor::fromRgbF(
               static_cast<float>(red), static_cast<float>(green), static_cast<float>(blue))
                                                                    : QColor();
}

std::optional<ColorScheme> colorSchemeFrom(const QVariant &value)
{
    switch (value.toUInt()) {
    case 1:
        return ColorScheme::Dark;
    case 2:
        return ColorScheme::Light;
    default:
        return std::nullopt;
    }
}
} // namespace

PortalAppearance::PortalAppearance(std::unique_ptr<Appearance> otherwise)
    : m_otherwise(std::move(otherwise))
{
    connect(m_otherwise.get(), &Appearance::changed, this, &Appearance::changed);
    if (QDBusConnection::sessionBus().isConnected()) {
        connectToPortal();
    }
}

void PortalAppearance::connectToPortal()
{
    auto bus = QDBusConnection::sessionBus();
    bus.connect(Portal::service, Portal::path, settingsInterface, QStringLiteral("SettingChanged"),
                this, SLOT(settingChanged(QDBusMessage)));
    const auto *watcher = new QDBusServiceWatcher(Portal::service, bus,
                                                  QDBusServiceWatcher::WatchForRegistration, this);
    connect(watcher, &QDBusServiceWatcher::serviceRegistered, this, [this] {
        readColorScheme();
        if (m_isRestRead) {
            readRest();
        }
    });
    readColorScheme();
}

ColorScheme PortalAppearance::colorScheme() const
{
    return m_colorScheme.value_or(m_otherwise->colorScheme());
}

void PortalAppearance::readColorScheme()
{
    read(appearanceSpace, colorSchemeKey);
}

void PortalAppearance::windowsWillOpen()
{
    m_otherwise->windowsWillOpen();
    if (!m_isRestRead && QDBusConnection::sessionBus().isConnected()) {
        readRest();
    }
}

void PortalAppearance::readRest()
{
    m_isRestRead = true;
    for (const QString &key : {accentKey, contrastKey, reducedMotionKey}) {
        read(appearanceSpace, key);
    }
    read(gnomeSpace, animationsKey);
}

void PortalAppearance::read(const QString &space, const QString &key)
{
    auto call = QDBusMessage::createMethodCall(Portal::service, Portal::path, settingsInterface,
                                               QStringLiteral("Read"));
    call << space << key;
    Bus::ask(QDBusConnection::sessionBus(), call, this, [this, key](const QDBusMessage &reply) {
        if (reply.type() == QDBusMessage::ReplyMessage && !reply.arguments().isEmpty()) {
            adopt(key, unwrapped(reply.arguments().constFirst()));
        }
    });
}

void PortalAppearance::settingChanged(const QDBusMessage &message)
{
    const QVariantList arguments = message.arguments();
    if (arguments.size() != 3) {
        return;
    }
    const QString space = arguments.at(0).toString();
    const QString key = arguments.at(1).toString();
    if (space == appearanceSpace || (space == gnomeSpace && key == animationsKey)) {
        adopt(key, unwrapped(arguments.at(2)));
    }
}

void PortalAppearance::adopt(const QString &key, const QVariant &value)
{
    if (key == colorSchemeKey) {
        m_colorScheme = colorSchemeFrom(value);
    } else if (key == accentKey) {
        m_accent = accentFrom(value);
    } else if (key == contrastKey) {
        m_wantsHighContrast = value.toUInt() == 1;
    } else if (key == reducedMotionKey) {
        m_wantsReducedMotion = value.toUInt() == 1;
    } else if (key == animationsKey) {
        m_hasAnimationsOff = value.metaType() == QMetaType::fromType<bool>() && !value.toBool();
    } else {
        return;
    }
    emit changed();
}
