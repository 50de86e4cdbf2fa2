// SPDX-License-Identifier: MIT
#include "platform/linux/portal/PortalSession.h"

#include "platform/linux/portal/Portal.h"
#include "support/SessionBusFixture.h"

#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QGuiApplication>

using namespace Qt::StringLiterals;

namespace
{
const QString manager = u"org.gnome.SessionManager"_s;
const QString inhibit = manager + u".Inhibit(susu)"_s;
const QString uninhibit = manager + u".Uninhibit(u)"_s;
const QString portalInhibit = u"org.freedesktop.portal.Inhibit.Inhibit(sua{sv})"_s;
const QString portalClose = u"org.freedesktop.portal.Request.Close()"_s;
constexpr uint logout = 1;
} // namespace

class PortalSessionTest final : public SessionBusFixture
{
    Q_OBJECT

private slots:
    void init()
    {
        m_session = std::make_unique<PortalSession>();
        m_manager = std::make_unique<BusPeer>(manager);
        m_manager->answer = [](const QDBusMessage &call) { return call.createReply(7U); };
    }

    void hold_asksTheManagerOnce()
    {
        m_session->hold(u"a note"_s);
        m_session->hold(u"a note"_s);
        QTRY_COMPARE(m_manager->lastCall(), inhibit);
        QCOMPARE(m_manager->calls.size(), 1);
        QCOMPARE(m_manager->calls.constFirst().arguments(),
                 (QVariantList{u"org.tovla.Tovla"_s, 0U, u"a note"_s, logout}));
    }

    void release_endsTheInhibition_once()
    {
        m_session->hold(u"a note"_s);
        QTRY_COMPARE(m_manager->calls.size(), 1);
        flush();
        m_session->release();
        m_session->release();
        QTRY_COMPARE(m_manager->lastCall(), uninhibit);
        QCOMPARE(m_manager->calls.constLast().arguments(), QVariantList{7U});
        flush();
        QCOMPARE(m_manager->calls.size(), 2);
    }

    void release_beforeTheAnswer_endsTheInhibitionWhenItComes()
    {
        m_session->hold(u"a note"_s);
        m_session->release();
        QTRY_COMPARE(m_manager->calls.size(), 2);
        QCOMPARE(m_manager->lastCall(), uninhibit);
    }

    void heldAgainBeforeTheFirstAnswer_keepsOneInhibition()
    {
        uint cookie = 0;
        m_manager->answer
            = [&cookie](const QDBusMessage &call) { return call.createReply(++cookie); };
        m_session->hold(u"a note"_s);
        m_session->release();
        m_session->hold(u"another"_s);
        QTRY_COMPARE(m_manager->calls.size(), 3);
        QCOMPARE(m_manager->lastCall(), uninhibit);
        QCOMPARE(m_manager->calls.constLast().arguments(), QVariantList{1U});
        m_session->release();
        QTRY_COMPARE(m_manager->calls.size(), 4);
        QCOMPARE(m_manager->calls.constLast().arguments(), QVariantList{2U});
    }

    void withoutAManager_thePortalIsAsked()
    {
        m_manager.reset();
        BusPeer portal(Portal::service);
        portal.answer = [](const QDBusMessage &call) {
            return call.createReply(QVariant::fromValue(QDBusObjectPath(u"/request/1"_s)));
        };
        m_session->hold(u"a note"_s);
        QTRY_COMPARE(portal.lastCall(), portalInhibit);
        const QVariantList arguments = portal.calls.constFirst().arguments();
        QCOMPARE(arguments.at(0), QString());
        QCOMPARE(arguments.at(1), logout);
        const auto options = qdbus_cast<QVariantMap>(arguments.at(2));
        QCOMPARE(options.value(u"reason"_s), u"a note"_s);
        QVERIFY(!options.value(u"handle_token"_s).toString().isEmpty());
        flush();
        m_session->release();
        QTRY_COMPARE(portal.lastCall(), portalClose);
        QCOMPARE(portal.calls.constLast().path(), u"/request/1"_s);
    }

    void withoutAnybody_nothingIsHeld()
    {
        m_manager.reset();
        BusPeer portal(Portal::service);
        portal.answer = [](const QDBusMessage &call) {
            return call.createErrorReply(QDBusError::UnknownMethod, u"no such portal"_s);
        };
        m_session->hold(u"a note"_s);
        QTRY_COMPARE(portal.lastCall(), portalClose); // in case that it accepted nonetheless
        const auto calls = portal.calls.size();
        m_session->release();
        flush();
        QCOMPARE(portal.calls.size(), calls);
    }

    void cleanup()
    {
        m_session.reset();
        m_manager.reset();
    }

private:
    /// Waits until everything that was sent before has been received.
    static void flush()
    {
        for (int round = 0; round < 2; ++round) {
            QDBusConnection::sessionBus().call(QDBusMessage::createMethodCall(
                u"org.freedesktop.DBus"_s, u"/"_s, u"org.freedesktop.DBus"_s, u"GetId"_s));
            QCoreApplication::processEvents();
        }
    }

    std::unique_ptr<PortalSession> m_session;
    std::unique_ptr<BusPeer> m_manager;
};

QTEST_MAIN(PortalSessionTest)
#include "PortalSessionTest.moc"
