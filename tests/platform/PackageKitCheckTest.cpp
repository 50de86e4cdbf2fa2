// SPDX-License-Identifier: MIT
#include "support/PackageKitFixture.h"

#include <QDBusConnectionInterface>

#include <csignal>

using namespace Qt::StringLiterals;

Q_DECLARE_METATYPE(UpdateState::Failure)

/// The outcomes of a check for a newer version.
class PackageKitCheckTest final : public PackageKitFixture
{
    Q_OBJECT

private slots:
    void newerVersion_isOfferedWithItsNotes()
    {
        check();
        QCOMPARE(state().stage, Stage::available);
        QCOMPARE(state().version, u"1.1"_s);
        QCOMPARE(state().releaseNotes, u"• New bells."_s);
        QCOMPARE(calls(),
                 (QStringList{uR"(["SearchFiles", 4, ["/usr/bin/tovla"]])"_s,
                              uR"(["RefreshCache", false])"_s, uR"(["GetUpdates", 2])"_s,
                              u"[\"GetUpdateDetail\", [\"%1\"]]"_s.arg(updateId())}));
    }

    void packagersRevision_isNoOtherVersion()
    {
        m_scenario[u"SearchFiles"_s]
            = QJsonArray{package(u"tovla;1:1.0-2;amd64;manual:tovla-stable-main"_s)};
        check();
        QCOMPARE(state().stage, Stage::available);
    }

    void copyThatIsNotManaged()
    {
        m_scenario[u"SearchFiles"_s] = QJsonArray{QJsonObject()};
        check();
        QCOMPARE(state().failure, Failure::notManaged);
    }

    void otherVersionIsInstalled_beforeTheCheck()
    {
        m_scenario[u"SearchFiles"_s] = QJsonArray{package(u"tovla;1.2;amd64;stable"_s)};
        check();
        QCOMPARE(state().stage, Stage::replaced);
        QCOMPARE(state().version, u"1.2"_s);
        QCOMPARE(calls().size(), 1);
    }

    void otherVersionIsInstalled_duringTheCheck()
    {
        m_scenario[u"GetUpdates"_s] = QJsonArray{QJsonObject()};
        check();
        QCOMPARE(state().stage, Stage::replaced);
        QCOMPARE(state().version, u"1.1"_s);
    }

    void nothingNewer_isUpToDate_onlyAfterARefresh_data()
    {
        QTest::addColumn<QString>("installed");
        QTest::addColumn<QString>("refreshError");
        QTest::addColumn<int>("refreshCode");
        QTest::addColumn<Failure>("failure");
        const QString followed = installedId();
        const QString local = u"tovla;1.0;amd64;manual:local"_s;
        QTest::newRow("up to date") << followed << QString() << 0 << Failure::none;
        QTest::newRow("no source") << local << QString() << 0 << Failure::noSource;
        QTest::newRow("offline") << followed << u"no network"_s << 2 << Failure::offline;
        QTest::newRow("another key")
            << followed << u"NO_PUBKEY 0123"_s << 64 << Failure::improperlySigned;
        QTest::newRow("bad signature")
            << followed << u"BADSIG 0123 Someone"_s << 64 << Failure::improperlySigned;
        QTest::newRow("unsigned") << followed << u"The repository … is not signed."_s << 64
                                  << Failure::improperlySigned;
        QTest::newRow("altered index")
            << followed << u"Hash Sum mismatch"_s << 64 << Failure::notRetrieved;
        QTest::newRow("expired") << followed << u"Release file … is expired"_s << 64
                                 << Failure::notRetrieved;
        QTest::newRow("lists locked") << followed << u"Could not get lock"_s << 26 << Failure::busy;
        QTest::newRow("no password")
            << followed << u"Failed to obtain authentication."_s << 48 << Failure::notRetrieved;
        QTest::newRow("unheard-of") << followed << u"?"_s << 4711 << Failure::notRetrieved;
    }

    void nothingNewer_isUpToDate_onlyAfterARefresh()
    {
        QFETCH(const QString, installed);
        QFETCH(const QString, refreshError);
        QFETCH(const int, refreshCode);
        m_scenario[u"GetUpdates"_s] = QJsonArray{QJsonObject()};
        m_scenario[u"Resolve"_s] = QJsonArray{package(installed)};
        if (refreshCode != 0) {
            m_scenario[u"RefreshCache"_s] = QJsonArray{error(refreshCode, refreshError)};
        }
        check();
        QTEST(state().failure, "failure");
        QCOMPARE(state().stage, state().failure == Failure::none ? Stage::upToDate : Stage::failed);
        QCOMPARE(state().details, refreshError);
    }

    void updateIsOffered_whenAnotherSourceIsBroken()
    {
        m_scenario[u"RefreshCache"_s] = QJsonArray{error(64, u"elsewhere NO_PUBKEY"_s)};
        check();
        QCOMPARE(state().stage, Stage::available);
    }

    void updatesOfOthers_areNotOurs()
    {
        m_scenario[u"GetUpdates"_s] = QJsonArray{package(u"tovla-themes;9;all;stable"_s, 5)};
        m_scenario[u"Resolve"_s] = QJsonArray{package(installedId())};
        check();
        QCOMPARE(state().stage, Stage::upToDate);
    }

    void updateThatIsHeldBack_isNotUpToDate()
    {
        m_scenario[u"GetUpdates"_s] = QJsonArray{package(updateId(), 9)};
        m_scenario[u"Resolve"_s] = QJsonArray{package(installedId())};
        check();
        QCOMPARE(state().failure, Failure::notRetrieved);
        QVERIFY(state().details.startsWith(updateId()));
    }

    void updateOfAnotherSource_isRefused()
    {
        m_scenario[u"GetUpdates"_s] = QJsonArray{package(u"tovla;1.1;amd64;elsewhere"_s)};
        check();
        QCOMPARE(state().failure, Failure::noSource);
        QVERIFY(state().details.contains(u"elsewhere"_s));
    }

    void listThatIsNotWhole_isNotUpToDate()
    {
        const QString endless = u"x"_s.repeated(1000);
        m_scenario[u"GetUpdates"_s] = QJsonArray{package(u"other;1;all;%1"_s.arg(endless))};
        m_scenario[u"Resolve"_s] = QJsonArray{package(installedId())};
        check();
        QCOMPARE(state().failure, Failure::notRetrieved);
    }

    void missingChangelog_isNoNotes()
    {
        m_scenario[u"GetUpdateDetail"_s] = QJsonArray{QJsonObject{
            {u"detail"_s,
             QJsonArray{QString(), u"Changelog for this version is not yet available"_s}}}};
        check();
        QCOMPARE(state().stage, Stage::available);
        QCOMPARE(state().releaseNotes, QString());
    }

    void check_isCancelledAtOnce_evenWhereNobodyAnswers()
    {
        m_scenario[u"RefreshCache"_s] = QJsonArray{then(u"hang"_s)};
        startStandIn();
        m_updates->check();
        QTRY_VERIFY(calls().contains(uR"(["RefreshCache", false])"_s));
        QVERIFY(state().canCancel);
        m_updates->cancel();
        QCOMPARE(state(), UpdateState());
    }

    void secondCheck_whileOneIsUnderWay_isNone()
    {
        startStandIn();
        m_updates->check();
        m_updates->check();
        QTRY_VERIFY(!state().isUnderWay());
        QCOMPARE(calls().filter(u"SearchFiles"_s).size(), 1);
    }

    void serviceThatIsMissing()
    {
        m_updates->check();
        QTRY_COMPARE(state().failure, Failure::noService);
    }

    void strangerThatSpeaksForTheService_isNotHeard()
    {
        m_scenario[u"GetUpdates"_s] = QJsonArray{then(u"hang"_s)};
        startStandIn();
        m_updates->check();
        QTRY_VERIFY(calls().contains(uR"(["GetUpdates", 2])"_s));
        const auto stranger
            = QDBusConnection::connectToBus(QDBusConnection::SystemBus, u"stranger"_s);
        auto finished = QDBusMessage::createSignal(
            u"/3_abcdef"_s, u"org.freedesktop.PackageKit.Transaction"_s, u"Finished"_s);
        finished.setArguments({uint{PackageKitTransaction::failed}, 7U});
        QVERIFY(stranger.send(finished));
        // The bus delivers messages in order, so by this reply the signal has been delivered.
        QVERIFY(stranger.interface()->serviceUid(stranger.baseService()).isValid());
        endStandIn();
        QTRY_VERIFY(!state().isUnderWay());
        QCOMPARE(state().failure, Failure::noService);
    }

    void serviceThatRefuses_data()
    {
        QTest::addColumn<bool>("destroys");
        QTest::newRow("with an error") << false;
        QTest::newRow("destroying the transaction first") << true;
    }

    void serviceThatRefuses()
    {
        QFETCH(const bool, destroys);
        const QString name = u"org.freedesktop.PackageKit.Transaction.PackageIdInvalid"_s;
        m_scenario[u"GetUpdates"_s] = QJsonArray{
            QJsonObject{{u"refusal"_s, QJsonArray{name, u"No."_s}}, {u"destroys"_s, destroys}}};
        check();
        QCOMPARE(state().failure, Failure::notRetrieved);
        QVERIFY2(state().details.contains(u"PackageIdInvalid"_s), qPrintable(state().details));
    }

    void nonsense_isAFailure_data()
    {
        QTest::addColumn<QString>("method");
        QTest::addColumn<QJsonObject>("outcome");
        QTest::newRow("no id") << u"SearchFiles"_s << package(QString());
        QTest::newRow("id of blanks") << u"SearchFiles"_s << package(u";;;;;;;"_s);
        QTest::newRow("unheard-of exit") << u"GetUpdates"_s << QJsonObject{{u"exit"_s, 99}};
        QTest::newRow("no such path")
            << u"CreateTransaction"_s << QJsonObject{{u"path"_s, u"/nowhere"_s}};
    }

    void nonsense_isAFailure()
    {
        QFETCH(const QString, method);
        QFETCH(const QJsonObject, outcome);
        m_scenario[method] = QJsonArray{outcome};
        check();
        // An answer without a version number does not describe the running version.
        QVERIFY(state().stage == Stage::failed || state().stage == Stage::replaced);
    }

    void cancelledCheck_thatWasStillConnecting_isFollowedByOne()
    {
        startStandIn();
        m_updates->check();
        m_updates->cancel();
        m_updates->check();
        QTRY_COMPARE(state().stage, Stage::available);
        QCOMPARE(calls().filter(u"SearchFiles"_s).size(), 1);
    }

    void busThatHangs_hangsNobody()
    {
        ::kill(pid_t(m_bus.processId()), SIGSTOP);
        m_meter.start();
        m_updates->check();
        QVERIFY(state().isUnderWay());
        m_updates->cancel();
        QCOMPARE(state(), UpdateState());
        ::kill(pid_t(m_bus.processId()), SIGCONT);
    }

    // Must be the last test: a process never forgets the address of the bus.
    void busThatGoesAway_isTold()
    {
        m_scenario[u"RefreshCache"_s] = QJsonArray{then(u"hang"_s)};
        startStandIn();
        m_updates->check();
        QTRY_VERIFY(calls().contains(uR"(["RefreshCache", false])"_s));
        m_bus.kill();
        QTRY_COMPARE(state().failure, Failure::noService);
        m_bus.waitForFinished();
        m_updates->check();
        QTRY_COMPARE(state().failure, Failure::noService);
    }
};

QTEST_GUILESS_MAIN(PackageKitCheckTest)
#include "PackageKitCheckTest.moc"
