// SPDX-License-Identifier: MIT
#include "platform/linux/tray/StatusNotifierWatcher.h"

#include "support/SessionBusFixture.h"

#include <QDBusConnectionInterface>
#include <QDBusVariant>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

using Hosts = StatusNotifierWatcher::Hosts;

namespace
{
const QString service = u"org.kde.StatusNotifierWatcher"_s;
const QString path = u"/StatusNotifierWatcher"_s;
const QString question = u"org.freedesktop.DBus.Properties.Get(ss)"_s;
const QString registration = service + u".RegisterStatusNotifierItem(s)"_s;

QString itemName()
{
    return u"org.kde.StatusNotifierItem-%1-1"_s.arg(QCoreApplication::applicationPid());
}

QString ownerOf(const QString &name)
{
    return QDBusConnection::sessionBus().interface()->serviceOwner(name);
}

QDBusMessage hasHost(const QDBusMessage &call, bool has)
{
    return call.createReply(QVariant::fromValue(QDBusVariant(has)));
}
} // namespace

class StatusNotifierWatcherTest final : public SessionBusFixture
{
    Q_OBJECT

private slots:
    void init()
    {
        m_hasHost = true;
        m_peer = std::make_unique<BusPeer>(service);
        m_peer->answer = [this](const QDBusMessage &call) { return hasHost(call, m_hasHost); };
    }

    void whereAHostIs_theItemIsRegistered()
    {
        start();
        QCOMPARE(m_watcher->hosts(), Hosts::Unknown);
        QTRY_COMPARE(m_peer->lastCall(), registration);
        QCOMPARE(m_watcher->hosts(), Hosts::Some);
        QCOMPARE(m_changes->size(), 1);
        const QDBusMessage asked = m_peer->calls.constFirst();
        QCOMPARE(asked.path(), path);
        QCOMPARE(asked.arguments(), (QVariantList{service, u"IsStatusNotifierHostRegistered"_s}));
        QCOMPARE(m_peer->calls.constLast().arguments(), QVariantList{itemName()});
        QCOMPARE(ownerOf(itemName()), QDBusConnection::sessionBus().baseService());
    }

    void whereTheNameIsTaken_theItemIsRegisteredWithoutIt()
    {
        QVERIFY(QDBusConnection::sessionBus().unregisterService(itemName()));
        const BusPeer other(itemName());
        start();
        QTRY_COMPARE(m_peer->lastCall(), registration);
        QCOMPARE(m_peer->calls.constLast().arguments(),
                 QVariantList{QDBusConnection::sessionBus().baseService()});
    }

    void whereNoHostIs_nothingIsRegistered()
    {
        m_hasHost = false;
        start();
        QTRY_COMPARE(m_watcher->hosts(), Hosts::None);
        QCOMPARE(m_peer->calls.size(), 1);
        QCOMPARE(m_peer->lastCall(), question);
    }

    void whereNoWatcherIs_thereIsNoHost()
    {
        m_peer.reset();
        start();
        QTRY_COMPARE(m_watcher->hosts(), Hosts::None);
    }

    void watcher_thatDoesNotAnswer_isNotKnownToHaveNone_data()
    {
        QTest::addColumn<int>("error");
        QTest::addColumn<bool>("isKnown");
        QTest::newRow("no reply") << int{QDBusError::NoReply} << false;
        QTest::newRow("timeout") << int{QDBusError::Timeout} << false;
        QTest::newRow("refused") << int{QDBusError::AccessDenied} << true;
    }
    void watcher_thatDoesNotAnswer_isNotKnownToHaveNone()
    {
        QFETCH(const int, error);
        QFETCH(const bool, isKnown);
        start();
        QTRY_COMPARE(m_watcher->hosts(), Hosts::Some);
        m_peer->answer = [error](const QDBusMessage &call) {
            return call.createErrorReply(static_cast<QDBusError::ErrorType>(error), u"no"_s);
        };
        tell(u"StatusNotifierHostUnregistered"_s);
        QTRY_COMPARE(m_watcher->hosts(), isKnown ? Hosts::None : Hosts::Unknown);
    }

    void hosts_thatComeAndGo_areAskedFor()
    {
        m_hasHost = false;
        start();
        QTRY_COMPARE(m_watcher->hosts(), Hosts::None);
        m_hasHost = true;
        tell(u"StatusNotifierItemRegistered"_s); // says nothing of hosts
        tell(u"StatusNotifierHostRegistered"_s);
        QTRY_COMPARE(m_peer->lastCall(), registration);
        QCOMPARE(m_peer->calls.size(), 3);
        m_hasHost = false;
        tell(u"StatusNotifierHostUnregistered"_s);
        QTRY_COMPARE(m_watcher->hosts(), Hosts::None);
        QCOMPARE(m_changes->size(), 3);
    }

    void newWatcher_learnsOfTheItem()
    {
        start();
        QTRY_COMPARE(m_peer->lastCall(), registration);
        m_peer.reset();
        QTRY_COMPARE(m_watcher->hosts(), Hosts::None);
        init();
        QTRY_COMPARE(m_peer->lastCall(), registration);
        QCOMPARE(m_watcher->hosts(), Hosts::Some);
    }

    void lateAnswers_areIgnored()
    {
        m_peer->answer = nullptr;
        start();
        QTRY_COMPARE(m_peer->calls.size(), 1);
        tell(u"StatusNotifierHostRegistered"_s);
        QTRY_COMPARE(m_peer->calls.size(), 2);
        m_peer->send(hasHost(m_peer->calls.at(1), true));
        QTRY_COMPARE(m_watcher->hosts(), Hosts::Some);
        m_peer->send(hasHost(m_peer->calls.at(0), false));
        tell(u"StatusNotifierHostRegistered"_s);
        QTRY_COMPARE(m_peer->calls.size(), 4);
        QCOMPARE(m_changes->size(), 1);
    }

    void cleanup()
    {
        m_changes.reset();
        m_watcher.reset();
        m_peer.reset();
    }

private:
    void start()
    {
        m_watcher = std::make_unique<StatusNotifierWatcher>(QDBusConnection::sessionBus(), nullptr);
        m_changes
            = std::make_unique<QSignalSpy>(m_watcher.get(), &StatusNotifierWatcher::hostsChanged);
    }
    void tell(const QString &signal) const { m_peer->signal(path, service, signal, {}); }

    bool m_hasHost = true;
    std::unique_ptr<BusPeer> m_peer;
    std::unique_ptr<StatusNotifierWatcher> m_watcher;
    std::unique_ptr<QSignalSpy> m_changes;
};

QTEST_GUILESS_MAIN(StatusNotifierWatcherTest)
#include "StatusNotifierWatcherTest.moc"
