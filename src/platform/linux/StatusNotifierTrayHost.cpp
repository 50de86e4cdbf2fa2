// SPDX-License-Identifier: MIT
#include "platform/linux/StatusNotifierTrayHost.h"

#include "platform/linux/Bus.h"
#include "platform/linux/SelectionOwner.h"

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QDBusVariant>
#include <QEvent>
#include <QGuiApplication>
#include <QPalette>
#include <QTimer>

#include <chrono>

namespace
{
using namespace std::chrono_literals;

const QString watcherService = QStringLiteral("org.kde.StatusNotifierWatcher");
const QString watcherPath = QStringLiteral("/StatusNotifierWatcher");

// While a session starts, its panel may come a little after us.
constexpr auto graceForStatusNotifier = 5s;
// A host that was announced and then says nothing does not hold the launch up for longer.
constexpr auto patienceForRegistration = 1s;
} // namespace

std::unique_ptr<TrayHost> TrayHost::ofThisPlatform()
{
    return std::make_unique<StatusNotifierTrayHost>();
}

void StatusNotifierTrayHost::find()
{
    qGuiApp->installEventFilter(this);
    QTimer::singleShot(graceForStatusNotifier, this, &StatusNotifierTrayHost::considerSystemTray);
    if (QDBusConnection::sessionBus().isConnected()) {
        watchStatusNotifierHosts();
        askForStatusNotifierHost();
    } else {
        QMetaObject::invokeMethod(this, &StatusNotifierTrayHost::settle, Qt::QueuedConnection);
    }
}

QColor StatusNotifierTrayHost::foreground() const
{
    // GNOME's top bar is dark in both of its looks.
    const bool isGnome = qEnvironmentVariable("XDG_CURRENT_DESKTOP")
                             .split(u':')
                             .contains(QStringLiteral("GNOME"), Qt::CaseInsensitive);
    constexpr int middleLightness = 128;
    const bool isDark
        = isGnome || qGuiApp->palette().window().color().lightness() < middleLightness;
    return isDark ? Qt::white : Qt::black;
}

bool StatusNotifierTrayHost::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == qGuiApp && event->type() == QEvent::ApplicationPaletteChange) {
        emit foregroundChanged();
    }
    return false;
}

void StatusNotifierTrayHost::watchStatusNotifierHosts()
{
    auto bus = QDBusConnection::sessionBus();
    const auto *registrations = new QDBusServiceWatcher(
        watcherService, bus, QDBusServiceWatcher::WatchForRegistration, this);
    connect(registrations, &QDBusServiceWatcher::serviceRegistered, this,
            &StatusNotifierTrayHost::askForStatusNotifierHost);
    // Without a member every signal of the watcher comes, for the price of one match rule.
    bus.connect(watcherService, watcherPath, watcherService, QString(), this,
                SLOT(watcherSignalled(QDBusMessage)));
}

void StatusNotifierTrayHost::watcherSignalled(const QDBusMessage &message)
{
    if (message.member() == u"StatusNotifierHostRegistered") {
        askForStatusNotifierHost();
    } else if (message.member() == u"StatusNotifierItemRegistered"
               && m_protocol == Protocol::StatusNotifier) {
        settle();
    }
}

void StatusNotifierTrayHost::askForStatusNotifierHost()
{
    if (m_protocol != Protocol::None) {
        return;
    }
    auto question = QDBusMessage::createMethodCall(
        watcherService, watcherPath, QStringLiteral("org.freedesktop.DBus.Properties"),
        QStringLiteral("Get"));
    question << watcherService << QStringLiteral("IsStatusNotifierHostRegistered");
    Bus::ask(QDBusConnection::sessionBus(), question, this, [this](const QDBusMessage &reply) {
        if (reply.arguments().value(0).value<QDBusVariant>().variant().toBool()) {
            take(Protocol::StatusNotifier);
        } else {
            settle();
        }
    });
}

void StatusNotifierTrayHost::considerSystemTray()
{
    if (m_protocol != Protocol::None) {
        return;
    }
    if (!m_systemTray) {
        m_systemTray = new SelectionOwner("_NET_SYSTEM_TRAY_S", this);
        connect(m_systemTray, &SelectionOwner::changed, this,
                &StatusNotifierTrayHost::considerSystemTray);
    }
    if (m_systemTray->exists()) {
        take(Protocol::SystemTray);
    }
}

void StatusNotifierTrayHost::take(Protocol protocol)
{
    if (m_protocol != Protocol::None) {
        return;
    }
    m_protocol = protocol;
    emit found();
    QTimer::singleShot(patienceForRegistration, this, &StatusNotifierTrayHost::settle);
}

void StatusNotifierTrayHost::settle()
{
    if (!m_isSettled) {
        m_isSettled = true;
        emit settled();
    }
}
