// SPDX-License-Identifier: MIT
#include "platform/linux/portal/PortalRequest.h"

#include "platform/linux/portal/Portal.h"
#include "support/SessionBusFixture.h"

#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QPointer>
#include <QSignalSpy>

#include <memory>

using namespace Qt::StringLiterals;

namespace
{
const QString portalInterface = u"org.freedesktop.portal.Inhibit"_s;
const QString requestInterface = u"org.freedesktop.portal.Request"_s;
const QString method = portalInterface + u".Inhibit(sa{sv})"_s;
const QString closeCall = requestInterface + u".Close()"_s;
const QString ownPath = u"/request/1"_s;

QString token(const QDBusMessage &call)
{
    return qdbus_cast<QVariantMap>(call.arguments().at(1)).value(u"handle_token"_s).toString();
}

/// Where the specification says that a request is.
QString specifiedPath(const QDBusMessage &call)
{
    const QString sender = call.service().mid(1).replace(u'.', u'_');
    return u"%1/request/%2/%3"_s.arg(Portal::path, sender, token(call));
}

QDBusMessage acceptedAt(const QDBusMessage &call, const QString &path)
{
    return call.createReply(QVariant::fromValue(QDBusObjectPath(path)));
}
} // namespace

class PortalRequestTest final : public SessionBusFixture
{
    Q_OBJECT

private slots:
    void init()
    {
        m_portal = std::make_unique<BusPeer>(Portal::service);
        m_request = new PortalRequest(portalInterface, u"Inhibit"_s, {u"window"_s},
                                      {{u"reason"_s, u"a note"_s}}, this);
        m_accepted = std::make_unique<QSignalSpy>(m_request, &PortalRequest::accepted);
        m_answered = std::make_unique<QSignalSpy>(m_request, &PortalRequest::answered);
        m_failed = std::make_unique<QSignalSpy>(m_request, &PortalRequest::failed);
        QTRY_COMPARE(m_portal->calls.size(), 1);
    }

    void arguments_areFollowedByTheOptions()
    {
        QCOMPARE(m_portal->lastCall(), method);
        QCOMPARE(call().path(), Portal::path);
        QCOMPARE(call().arguments().at(0), u"window"_s);
        const auto options = qdbus_cast<QVariantMap>(call().arguments().at(1));
        QCOMPARE(options.value(u"reason"_s), u"a note"_s);
    }

    void tokens_differ()
    {
        const PortalRequest other(portalInterface, u"Inhibit"_s, {u"window"_s}, {}, nullptr);
        QTRY_COMPARE(m_portal->calls.size(), 2);
        QVERIFY(token(m_portal->calls.at(0)) != token(m_portal->calls.at(1)));
    }

    void answer_isPassedOn()
    {
        m_portal->send(acceptedAt(call(), specifiedPath(call())));
        QVERIFY(m_accepted->wait());
        respond(specifiedPath(call()));
        QVERIFY(m_answered->wait());
        QCOMPARE(m_answered->constFirst().at(0), 1U);
        QCOMPARE(m_answered->constFirst().at(1).toMap(), (QVariantMap{{u"key"_s, u"value"_s}}));
        QVERIFY(m_failed->isEmpty());
    }

    void answer_beforeTheRequestIsAccepted_isHeard()
    {
        respond(specifiedPath(call()));
        QVERIFY(m_answered->wait());
    }

    void olderPortal_answersAtAPathOfItsOwn()
    {
        m_portal->send(acceptedAt(call(), ownPath));
        QVERIFY(m_accepted->wait());
        respond(ownPath);
        QVERIFY(m_answered->wait());
    }

    void answerWithoutArguments_isNoConsent()
    {
        m_portal->signal(specifiedPath(call()), requestInterface, u"Response"_s, {});
        QVERIFY(m_answered->wait());
        QCOMPARE(m_answered->constFirst().at(0), 2U);
    }

    void refusal_isAFailure_andIsClosedNonetheless()
    {
        m_portal->send(call().createErrorReply(QDBusError::UnknownMethod, u"no such portal"_s));
        QVERIFY(m_failed->wait());
        QVERIFY(m_accepted->isEmpty());
        QTRY_COMPARE(m_portal->lastCall(), closeCall);
        QCOMPARE(call().path(), specifiedPath(m_portal->calls.constFirst()));
    }

    void portalThatEnds_isAFailure()
    {
        m_portal->send(acceptedAt(call(), ownPath));
        QVERIFY(m_accepted->wait());
        m_portal.reset();
        QVERIFY(m_failed->wait());
    }

    void closed_saysNothingMore_andGoes()
    {
        m_portal->send(acceptedAt(call(), ownPath));
        QVERIFY(m_accepted->wait());
        const QPointer<PortalRequest> request(m_request);
        m_request->close();
        QTRY_VERIFY(!request);
        QTRY_COMPARE(m_portal->lastCall(), closeCall);
        QCOMPARE(call().path(), ownPath);
        QVERIFY(m_failed->isEmpty());
    }

    void closedBeforeItIsAccepted_isClosedThen()
    {
        const QPointer<PortalRequest> request(m_request);
        m_request->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(request);
        QCOMPARE(m_portal->calls.size(), 1);
        m_portal->send(acceptedAt(call(), ownPath));
        QTRY_COMPARE(m_portal->lastCall(), closeCall);
        QCOMPARE(call().path(), ownPath);
        QTRY_VERIFY(!request);
        QVERIFY(m_accepted->isEmpty());
    }

    void closed_hearsNoAnswer()
    {
        m_request->close();
        respond(specifiedPath(call()));
        m_portal->send(acceptedAt(call(), specifiedPath(call())));
        QTRY_COMPARE(m_portal->lastCall(), closeCall);
        QVERIFY(m_answered->isEmpty());
    }

    void cleanup()
    {
        qDeleteAll(findChildren<PortalRequest *>());
        m_portal.reset();
    }

private:
    /// The latest one.
    [[nodiscard]] QDBusMessage call() const { return m_portal->calls.constLast(); }
    void respond(const QString &path) const
    {
        m_portal->signal(path, requestInterface, u"Response"_s,
                         {1U, QVariantMap{{u"key"_s, u"value"_s}}});
    }

    std::unique_ptr<BusPeer> m_portal;
    PortalRequest *m_request = nullptr;
    std::unique_ptr<QSignalSpy> m_accepted;
    std::unique_ptr<QSignalSpy> m_answered;
    std::unique_ptr<QSignalSpy> m_failed;
};

QTEST_GUILESS_MAIN(PortalRequestTest)
#include "PortalRequestTest.moc"
