// SPDX-License-Identifier: MIT
#include "platform/linux/bus/BusRunningCopy.h"

#include "platform/linux/bus/ActivationToken.h"

#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

class BusRunningCopyTest final : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        qunsetenv("XDG_ACTIVATION_TOKEN");
        qunsetenv("DBUS_STARTER_BUS_TYPE");
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
