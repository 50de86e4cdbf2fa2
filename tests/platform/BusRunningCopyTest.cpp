// SPDX-License-Identifier: MIT
#include "platform/linux/bus/BusRunningCopy.h"

#include "platform/linux/bus/ActivationToken.h"
#include "support/SessionBusFixture.h"

#include <QDBusArgument>
#include <QDBusConnectionInterface>
#include <QSignalSpy>

#include <chrono>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace
{
const QString name = u"org.tovla.Tovla"_s;

QDBusConnectionInterface &daemon()
{
    return *QDBusConnection::sessionBus().interface();
}
} // namespace

class BusRunningCopyTest final : public SessionBusFixture
{
    Q_OBJECT

private slots:
    void init()
    {
        qunsetenv("XDG_ACTIVATION_TOKEN");
        qunsetenv("DBUS_STARTER_BUS_TYPE");
        qunsetenv("DESKTOP_STARTUP_ID");
        BusRunningCopy::prepare();
    }

    void theFirstCopyOwnsTheName()
    {
        BusRunningCopy copy;
        QSignalSpy becameFirst(&copy, &RunningCopy::becameFirst);
        copy.claim();
        QVERIFY(becameFirst.wait());
        QCOMPARE(daemon().serviceOwner(name), QDBusConnection::sessionBus().baseService());
        QVERIFY(daemon().unregisterService(name).isValid());
    }

    void anotherCopyIsAskedToComeForward()
    {
        qputenv("DESKTOP_STARTUP_ID", "launcher_TIME1");
        qputenv("XDG_ACTIVATION_TOKEN", "launcher/1");
        BusRunningCopy::prepare();
        BusPeer other(name);
        other.answer = [](const QDBusMessage &call) { return call.createReply(); };
        BusRunningCopy copy;
        QSignalSpy foundAnother(&copy, &RunningCopy::foundAnother);
        const QSignalSpy becameFirst(&copy, &RunningCopy::becameFirst);
        copy.claim();
        QVERIFY(foundAnother.wait());
        QVERIFY(becameFirst.isEmpty());
        QCOMPARE(other.lastCall(), u"org.freedesktop.Application.Activate(a{sv})"_s);
        QCOMPARE(other.calls.constLast().path(), u"/org/tovla/Tovla"_s);
        const auto told = qdbus_cast<QVariantMap>(other.calls.constLast().arguments().at(0));
        QCOMPARE(told,
                 (QVariantMap{{u"desktop-startup-id"_s, u"launcher_TIME1"_s},
                              {u"activation-token"_s, u"launcher/1"_s}}));
    }

    void aCopyThatRefusesIsUnresponsive()
    {
        BusPeer other(name);
        other.answer = [](const QDBusMessage &call) {
            return call.createErrorReply(QDBusError::Failed, u"not now"_s);
        };
        BusRunningCopy copy;
        QSignalSpy foundUnresponsive(&copy, &RunningCopy::foundUnresponsive);
        copy.claim();
        QVERIFY(foundUnresponsive.wait());
    }

    void aCopyThatDoesNotAnswerIsUnresponsive()
    {
        const BusPeer other(name);
        BusRunningCopy copy;
        QSignalSpy foundUnresponsive(&copy, &RunningCopy::foundUnresponsive);
        copy.claim();
        QVERIFY(foundUnresponsive.wait(std::chrono::milliseconds(1min).count()));
    }

    void theActivationThatStartedItIsDoneWithTheStart()
    {
        qputenv("DBUS_STARTER_BUS_TYPE", "session");
        BusRunningCopy copy;
        QVERIFY(copy.wasStartedByHand());
        const QSignalSpy activated(&copy, &RunningCopy::activated);
        copy.Activate({});
        QCOMPARE(activated.size(), 0);
        copy.Activate({});
        QCOMPARE(activated.size(), 1);
    }

    void anActionThatStartedItIsCarriedOut()
    {
        qputenv("DBUS_STARTER_BUS_TYPE", "session");
        BusRunningCopy copy;
        const QSignalSpy requested(&copy, &RunningCopy::actionRequested);
        const QSignalSpy activated(&copy, &RunningCopy::activated);
        copy.ActivateAction(u"settings"_s, {}, {});
        QCOMPARE(requested.size(), 1);
        copy.Activate({});
        QCOMPARE(activated.size(), 1);
    }

    void aStartupIdTellsThatTheUserStartedIt()
    {
        qputenv("DESKTOP_STARTUP_ID", "launcher_TIME1");
        BusRunningCopy::prepare();
        QVERIFY(BusRunningCopy().wasStartedByHand());
    }

    void aTokenTellsThatTheUserStartedIt_data()
    {
        QTest::addColumn<QByteArray>("token");
        QTest::addColumn<bool>("byHand");
        QTest::newRow("at login") << QByteArray() << false;
        QTest::newRow("by a launcher") << "a/1"_ba << true;
    }

    void aTokenTellsThatTheUserStartedIt()
    {
        QFETCH(const QByteArray, token);
        if (!token.isEmpty()) {
            qputenv("XDG_ACTIVATION_TOKEN", token);
        }
        QTEST(BusRunningCopy().wasStartedByHand(), "byHand");
    }

    void aRequestBringsATokenForTheWindowThatItOpens()
    {
        BusRunningCopy copy;
        const QSignalSpy activated(&copy, &RunningCopy::activated);
        copy.Activate({{u"activation-token"_s, u"launcher/1"_s}});
        QCOMPARE(activated.size(), 1);
        QCOMPARE(ActivationToken::unused(), u"launcher/1"_s);
        copy.ActivateAction(u"settings"_s, {}, {{u"activation-token"_s, u"launcher/2"_s}});
        QCOMPARE(ActivationToken::unused(), u"launcher/2"_s);
    }

    void aRequestToOpenFilesIsOneForTheProgram()
    {
        BusRunningCopy copy;
        const QSignalSpy activated(&copy, &RunningCopy::activated);
        copy.Open({u"file:///tmp/notes.md"_s}, {{u"activation-token"_s, u"launcher/4"_s}});
        QCOMPARE(activated.size(), 1);
        QCOMPARE(ActivationToken::unused(), u"launcher/4"_s);
    }

    void aRequestWithoutATokenLeavesTheOneThatIsThere()
    {
        BusRunningCopy copy;
        copy.Activate({{u"activation-token"_s, u"launcher/1"_s}});
        copy.Activate({});
        QCOMPARE(ActivationToken::unused(), u"launcher/1"_s);
    }

    void theTokenIsThereBeforeTheRequestIsCarriedOut()
    {
        BusRunningCopy copy;
        QString token;
        connect(&copy, &RunningCopy::actionRequested, &copy,
                [&token] { token = ActivationToken::unused(); });
        copy.ActivateAction(u"settings"_s, {}, {{u"activation-token"_s, u"launcher/3"_s}});
        QCOMPARE(token, u"launcher/3"_s);
    }
};

QTEST_GUILESS_MAIN(BusRunningCopyTest)
#include "BusRunningCopyTest.moc"
