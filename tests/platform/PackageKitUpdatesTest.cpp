// SPDX-License-Identifier: MIT
#include "platform/linux/PackageKitUpdates.h"

#include "support/EventLoopMeter.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>

#include <chrono>
#include <csignal>
#include <memory>

using namespace Qt::StringLiterals;

using namespace std::chrono_literals;
using Stage = UpdateState::Stage;
using Failure = UpdateState::Failure;

Q_DECLARE_METATYPE(UpdateState::Failure)

namespace
{
const QString installedId = u"tovla;1.0;amd64;manual:tovla-stable-main"_s;
const QString updateId = u"tovla;1.1;amd64;tovla-stable-main"_s;

QJsonObject package(const QString &id, int info = 1)
{
    return {{u"packages"_s, QJsonArray{QJsonArray{info, id}}}};
}

QJsonObject error(int code, const QString &text)
{
    return {{u"error"_s, QJsonArray{code, text}}};
}

QJsonObject then(const QString &what)
{
    return {{u"then"_s, what}};
}
} // namespace

/// The engine against a stand-in for PackageKit (support/packagekit.py) on a private bus.
class PackageKitUpdatesTest final : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        m_bus.start(u"dbus-daemon"_s, {u"--session"_s, u"--nofork"_s, u"--print-address"_s});
        QTRY_VERIFY(m_bus.canReadLine());
        qputenv("DBUS_SYSTEM_BUS_ADDRESS", m_bus.readLine().trimmed());
    }
    void cleanupTestCase() { end(m_bus); }

    void init()
    {
        // Version 1.0 is installed, 1.1 is offered with notes, and installing it works.
        m_scenario = {
            {u"SearchFiles"_s, QJsonArray{package(installedId)}},
            {u"GetUpdates"_s, QJsonArray{package(updateId, 5 << 16 | 5)}},
            {u"GetUpdateDetail"_s,
             QJsonArray{QJsonObject{
                 {u"detail"_s, QJsonArray{QString(), u"tovla (1.1) any; x\n\n * New bells."_s}}}}},
            {u"Simulate"_s, QJsonArray{package(updateId, 11)}},
            {u"Resolve"_s, QJsonArray{package(u"tovla;1.1;amd64;manual:tovla-stable-main"_s)}},
        };
        m_updates = std::make_unique<PackageKitUpdates>(u"/usr/bin/tovla"_s, u"1.0"_s);
    }
    void cleanup()
    {
        m_updates.reset();
        end(m_standIn);
        QVERIFY2(m_meter.longestTurn() < EventLoopMeter::frame,
                 qPrintable(u"%1 µs"_s.arg(m_meter.longestTurn().count() / 1000)));
    }

    void newerVersion_isOfferedWithItsNotes()
    {
        check();
        QCOMPARE(state().stage, Stage::available);
        QCOMPARE(state().version, u"1.1"_s);
        QCOMPARE(state().releaseNotes, u"• New bells."_s);
        QCOMPARE(calls(),
                 (QStringList{uR"(["SearchFiles", 4, ["/usr/bin/tovla"]])"_s,
                              uR"(["RefreshCache", false])"_s, uR"(["GetUpdates", 2])"_s,
                              u"[\"GetUpdateDetail\", [\"%1\"]]"_s.arg(updateId)}));
    }

    void newerVersion_isInstalled_onlyWhenTrusted_andSeenToBeThere()
    {
        check();
        install();
        QCOMPARE(state().stage, Stage::updated);
        QCOMPARE(state().version, u"1.1"_s);
        QCOMPARE(calls().mid(4),
                 (QStringList{u"[\"Simulate\", 6, [\"%1\"]]"_s.arg(updateId),
                              u"[\"UpdatePackages\", 2, [\"%1\"]]"_s.arg(updateId),
                              uR"(["Resolve", 4, ["tovla"]])"_s}));
    }

    void packagersRevision_isNoOtherVersion()
    {
        m_scenario[u"SearchFiles"_s] = QJsonArray{package(u"tovla;1:1.0-2;amd64;stable"_s)};
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
        const QString followed = installedId;
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
        if (refreshCode) {
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
        m_scenario[u"Resolve"_s] = QJsonArray{package(installedId)};
        check();
        QCOMPARE(state().stage, Stage::upToDate);
    }

    void blockedUpdate_isNone()
    {
        m_scenario[u"GetUpdates"_s] = QJsonArray{package(updateId, 9)};
        m_scenario[u"Resolve"_s] = QJsonArray{package(installedId)};
        check();
        QCOMPARE(state().stage, Stage::upToDate);
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

    void failedInstallation_data()
    {
        QTest::addColumn<QString>("method");
        QTest::addColumn<int>("code");
        QTest::addColumn<Failure>("failure");
        QTest::newRow("altered package") << u"UpdatePackages"_s << 10 << Failure::notDownloaded;
        QTest::newRow("bad signature") << u"UpdatePackages"_s << 50 << Failure::notDownloaded;
        QTest::newRow("another program installs") << u"UpdatePackages"_s << 26 << Failure::busy;
        QTest::newRow("offline") << u"UpdatePackages"_s << 2 << Failure::offline;
        QTest::newRow("unheard-of") << u"UpdatePackages"_s << 4711 << Failure::notInstalled;
        QTest::newRow("cannot be simulated") << u"Simulate"_s << 4711 << Failure::notInstalled;
    }

    void failedInstallation()
    {
        QFETCH(const QString, method);
        QFETCH(const int, code);
        m_scenario[method] = QJsonArray{error(code, u"because"_s)};
        check();
        install();
        QCOMPARE(state().stage, Stage::failed);
        QTEST(state().failure, "failure");
        QCOMPARE(state().details, u"because"_s);
    }

    void passwordNotGiven_offersAgain()
    {
        m_scenario[u"UpdatePackages"_s]
            = QJsonArray{error(48, u"Failed to obtain authentication."_s), QJsonObject()};
        check();
        QVERIFY(!state().wasNotAuthorised);
        install();
        QCOMPARE(state().stage, Stage::available);
        QVERIFY(state().wasNotAuthorised);
        QCOMPARE(state().version, u"1.1"_s);
        install();
        QCOMPARE(state().stage, Stage::updated);
    }

    void otherPackages_areShownBeforeTheyChange()
    {
        const QJsonArray changes{QJsonArray{11, updateId},
                                 QJsonArray{12, u"libnew;1;amd64;stable"_s},
                                 QJsonArray{13, u"editor;2;amd64;stable"_s},
                                 QJsonArray{11, u"browser;3;amd64;stable"_s}};
        m_scenario[u"Simulate"_s] = QJsonArray{QJsonObject{{u"packages"_s, changes}}};
        check();
        install();
        QCOMPARE(state().stage, Stage::available);
        QCOMPARE(state().otherPackages, (QStringList{u"browser"_s, u"editor"_s}));
        QVERIFY(calls().filter(u"UpdatePackages"_s).isEmpty());
        install();
        QCOMPARE(state().stage, Stage::updated);
    }

    void successThatDidNothing_isNone()
    {
        m_scenario[u"Resolve"_s] = QJsonArray{package(installedId)};
        check();
        install();
        QCOMPARE(state().failure, Failure::notInstalled);
    }

    void progress_isTold()
    {
        const auto step = [](int status, int percentage, bool canCancel, int remaining) {
            return QJsonObject{{u"Status"_s, status},
                               {u"Percentage"_s, percentage},
                               {u"AllowCancel"_s, canCancel},
                               {u"DownloadSizeRemaining"_s, remaining}};
        };
        m_scenario[u"UpdatePackages"_s] = QJsonArray{QJsonObject{
            {u"progress"_s,
             QJsonArray{step(1, 101, true, 0), step(31, 101, true, 0), step(8, 0, true, 4000),
                        step(8, 75, true, 1000), step(10, 80, false, 0)}}}};
        check();
        QList<UpdateState> seen;
        connect(m_updates.get(), &Updates::changed, this, [&] { seen.append(state()); });
        install();
        const auto find = [&seen](auto condition) {
            return std::find_if(seen.cbegin(), seen.cend(), condition);
        };
        QVERIFY(find([](const UpdateState &each) {
                    return each.stage == Stage::waitingForOthers && each.canCancel;
                })
                != seen.cend());
        QVERIFY(find([](const UpdateState &each) {
                    return each.stage == Stage::waitingForAuthorisation;
                })
                != seen.cend());
        QVERIFY(find([](const UpdateState &each) {
                    return each.stage == Stage::downloading && each.percentage == 75
                        && each.downloadSize == 4000 && each.downloadedSize == 3000;
                })
                != seen.cend());
        QVERIFY(find([](const UpdateState &each) {
                    return each.stage == Stage::installing && each.percentage == 80
                        && !each.canCancel;
                })
                != seen.cend());
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

    void installation_isCancelledOnlyWhereTheServiceAllows()
    {
        m_scenario[u"Simulate"_s] = QJsonArray{then(u"hang"_s)};
        check();
        m_updates->install();
        QTRY_COMPARE(calls().filter(u"Simulate"_s).size(), 1);
        QVERIFY(!state().canCancel);
        m_updates->cancel();
        QCOMPARE(state().stage, Stage::installing);
        QVERIFY(!calls().contains(uR"(["Cancel"])"_s));
    }

    void download_isCancelled()
    {
        m_scenario[u"UpdatePackages"_s] = QJsonArray{then(u"cancellable"_s)};
        check();
        m_updates->install();
        QTRY_VERIFY(state().canCancel);
        m_updates->cancel();
        QTRY_COMPARE(state(), UpdateState());
        QTRY_VERIFY(calls().contains(uR"(["Cancel"])"_s));
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

    void serviceThatVanishes_data()
    {
        QTest::addColumn<QString>("method");
        for (const char *const method :
             {"SearchFiles", "RefreshCache", "GetUpdates", "Simulate", "UpdatePackages"}) {
            QTest::newRow(method) << QString::fromLatin1(method);
        }
    }

    void serviceThatVanishes()
    {
        QFETCH(const QString, method);
        m_scenario[method] = QJsonArray{then(u"vanish"_s)};
        check();
        if (state().stage == Stage::available) {
            install();
        }
        QCOMPARE(state().stage, Stage::failed);
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
        // What is told of a version without a number is not this one.
        QVERIFY(state().stage == Stage::failed || state().stage == Stage::replaced);
    }

    void megabytesOfText_areCut()
    {
        const QString much = u"All work and no play.\n"_s.repeated(100'000);
        m_scenario[u"GetUpdateDetail"_s]
            = QJsonArray{QJsonObject{{u"detail"_s, QJsonArray{QString(), u"@much"_s}}}};
        m_scenario[u"UpdatePackages"_s] = QJsonArray{error(4711, u"@much"_s)};
        check();
        QCOMPARE(state().stage, Stage::available);
        QVERIFY(much.startsWith(state().releaseNotes));
        QCOMPARE(state().releaseNotes.size(), 20'000);
        install();
        QVERIFY(much.startsWith(state().details));
        QCOMPARE(state().details.size(), 20'000);
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

    void busThatIsNotThere()
    {
        const QByteArray address = qgetenv("DBUS_SYSTEM_BUS_ADDRESS");
        qputenv("DBUS_SYSTEM_BUS_ADDRESS", "unix:path=/nonexistent/bus");
        m_updates->check();
        QTRY_COMPARE(state().failure, Failure::noService);
        qputenv("DBUS_SYSTEM_BUS_ADDRESS", address);
    }

private:
    [[nodiscard]] const UpdateState &state() const { return m_updates->state(); }

    void check()
    {
        startStandIn();
        m_meter.start();
        m_updates->check();
        QVERIFY(state().isUnderWay());
        QTRY_VERIFY(!state().isUnderWay());
    }
    void install()
    {
        m_updates->install();
        QTRY_VERIFY(!state().isUnderWay());
    }

    void startStandIn()
    {
        const auto scenario = QJsonDocument(m_scenario).toJson(QJsonDocument::Compact);
        m_standIn.start(u"/usr/bin/python3"_s,
                        {QStringLiteral(TOVLA_SOURCE_DIR "/tests/support/packagekit.py"),
                         QString::fromUtf8(scenario)});
        QTRY_VERIFY(m_standIn.canReadLine());
        QCOMPARE(m_standIn.readLine(), "ready\n");
        m_calls.clear();
    }
    static void end(QProcess &process)
    {
        process.kill();
        process.waitForFinished();
    }

    /// The methods called so far, without the hints that come before each.
    QStringList calls()
    {
        while (m_standIn.canReadLine()) {
            const QString line = QString::fromUtf8(m_standIn.readLine()).trimmed();
            if (!line.startsWith(u"[\"SetHints\"")) {
                m_calls.append(line);
            }
        }
        return m_calls;
    }

    QProcess m_bus;
    QProcess m_standIn;
    QJsonObject m_scenario;
    QStringList m_calls;
    EventLoopMeter m_meter;
    std::unique_ptr<PackageKitUpdates> m_updates;
};

QTEST_GUILESS_MAIN(PackageKitUpdatesTest)
#include "PackageKitUpdatesTest.moc"
