// SPDX-License-Identifier: MIT
#include "support/PackageKitFixture.h"

#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;

Q_DECLARE_METATYPE(UpdateState::Failure)

/// The outcomes of installing a newer version.
class PackageKitInstallTest final : public PackageKitFixture
{
    Q_OBJECT

private slots:
    void newerVersion_isInstalled_onlyWhenTrusted_andSeenToBeThere()
    {
        check();
        install();
        QCOMPARE(state().stage, Stage::updated);
        QCOMPARE(state().version, u"1.1"_s);
        QCOMPARE(calls().mid(4),
                 (QStringList{u"[\"Simulate\", 6, [\"%1\"]]"_s.arg(updateId()),
                              u"[\"UpdatePackages\", 2, [\"%1\"]]"_s.arg(updateId()),
                              uR"(["Resolve", 4, ["tovla"]])"_s}));
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
        const QJsonArray changes{QJsonArray{11, updateId()},
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
        m_scenario[u"Resolve"_s] = QJsonArray{package(installedId())};
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
        connect(m_updates.get(), &UpdateSession::changed, this, [&] { seen.append(state()); });
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

    void sizeBeyondAllCounting_isCutToWhatCanBeCounted()
    {
        // 2^63, which fits no signed integer, so JSON stores it as a double.
        const QJsonObject progress{{u"Status"_s, 8}, {u"DownloadSizeRemaining"_s, 0x1p63}};
        m_scenario[u"UpdatePackages"_s] = QJsonArray{
            QJsonObject{{u"progress"_s, QJsonArray{progress}}, {u"then"_s, u"hang"_s}}};
        check();
        m_updates->install();
        QTRY_COMPARE(state().stage, Stage::downloading);
        QTRY_COMPARE(state().downloadSize, std::numeric_limits<qint64>::max());
        QCOMPARE(state().downloadedSize, 0);
    }

    void installation_isCancelledOnlyWhereTheServiceAllows()
    {
        m_scenario[u"UpdatePackages"_s] = QJsonArray{then(u"hang"_s)};
        check();
        m_updates->install();
        QTRY_COMPARE(calls().filter(u"UpdatePackages"_s).size(), 1);
        QVERIFY(!state().canCancel);
        m_updates->cancel();
        QCOMPARE(state().stage, Stage::installing);
        QVERIFY(!calls().contains(uR"(["Cancel"])"_s));
    }

    void simulation_isCancelledAtAnyTime()
    {
        m_scenario[u"Simulate"_s] = QJsonArray{then(u"hang"_s)};
        check();
        m_updates->install();
        QTRY_COMPARE(calls().filter(u"Simulate"_s).size(), 1);
        QVERIFY(state().canCancel);
        m_updates->cancel();
        QCOMPARE(state(), UpdateState());
    }

    void packageBuiltAnew_isInstalled()
    {
        const QString source = u"amd64;manual:tovla-stable-main"_s;
        m_scenario[u"SearchFiles"_s] = QJsonArray{package(u"tovla;1.0-1;"_s + source)};
        m_scenario[u"GetUpdates"_s] = QJsonArray{package(u"tovla;1.0-2;amd64;tovla-stable-main"_s)};
        m_scenario[u"Simulate"_s] = m_scenario[u"GetUpdates"_s];
        m_scenario[u"Resolve"_s] = QJsonArray{package(u"tovla;1.0-2;"_s + source)};
        check();
        QCOMPARE(state().version, u"1.0-2"_s);
        install();
        QCOMPARE(state().stage, Stage::updated);
    }

    void download_isCancelled()
    {
        m_scenario[u"UpdatePackages"_s] = QJsonArray{then(u"cancellable"_s)};
        check();
        m_updates->install();
        QTRY_COMPARE(calls().filter(u"UpdatePackages"_s).size(), 1);
        QTRY_VERIFY(state().canCancel);
        m_updates->cancel();
        QTRY_COMPARE(state(), UpdateState());
        QTRY_VERIFY(calls().contains(uR"(["Cancel"])"_s));
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
};

QTEST_GUILESS_MAIN(PackageKitInstallTest)
#include "PackageKitInstallTest.moc"
