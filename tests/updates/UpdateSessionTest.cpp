// SPDX-License-Identifier: MIT
#include "support/UpdateSessionFixture.h"

using namespace Qt::StringLiterals;

namespace
{
const QStringList wholeCheck{u"findPackageOf"_s, u"refreshSources"_s, u"findNewerVersion"_s,
                             u"readReleaseNotes"_s};
} // namespace

/// How the answers to a check are interpreted, independent of the package manager.
class UpdateSessionTest final : public UpdateSessionFixture
{
    Q_OBJECT

private slots:
    void nothingIsAsked_beforeTheFirstCheck()
    {
        QCOMPARE(state(), UpdateState());
        m_session->install();
        m_session->cancel();
        QCOMPARE(m_packages->asked, QStringList());
    }

    void answers_mayComeAtOnceOrLater_data()
    {
        QTest::addColumn<bool>("later");
        QTest::newRow("at once") << false;
        QTest::newRow("later") << true;
    }

    void answers_mayComeAtOnceOrLater()
    {
        QFETCH(const bool, later);
        m_packages->answersLater = later;
        m_session->check();
        QCOMPARE(state().isUnderWay(), later);
        QTRY_COMPARE(state().stage, Stage::available);
        QCOMPARE(state().version, u"1.1"_s);
        QCOMPARE(state().releaseNotes, u"New bells."_s);
        QCOMPARE(m_packages->asked, wholeCheck);
        m_session->install();
        QCOMPARE(state().isUnderWay(), later);
        QTRY_COMPARE(state().stage, Stage::updated);
        QCOMPARE(state().version, u"1.1"_s);
        QCOMPARE(m_packages->asked.mid(wholeCheck.size()),
                 (QStringList{u"simulate"_s, u"install"_s, u"findInstalled"_s}));
    }

    void secondCheck_whileOneIsUnderWay_isNone()
    {
        m_packages->heldAt = u"refreshSources"_s;
        m_session->check();
        m_session->check();
        QCOMPARE(m_packages->asked.count(u"findPackageOf"_s), 1);
    }

    void copyThatIsNotManaged()
    {
        m_packages->installed.reset();
        m_session->check();
        QCOMPARE(state().failure, Failure::notManaged);
        QCOMPARE(m_packages->asked.size(), 1);
    }

    void otherVersionIsInstalled_data()
    {
        QTest::addColumn<QString>("version");
        QTest::newRow("newer") << u"1.2"_s;
        QTest::newRow("older") << u"0.9"_s;
    }

    void otherVersionIsInstalled()
    {
        QFETCH(const QString, version);
        m_packages->installed = TestPackageManager::tovla(version);
        m_session->check();
        QCOMPARE(state().stage, Stage::replaced);
        QCOMPARE(state().version, version);
        QCOMPARE(m_packages->asked.size(), 1);
    }

    void otherVersionIsInstalled_meanwhile()
    {
        m_packages->newer.reset();
        m_packages->heldAt = u"findNewerVersion"_s;
        m_session->check();
        m_packages->installed = TestPackageManager::tovla(u"1.1"_s);
        m_packages->goOn();
        QCOMPARE(state().stage, Stage::replaced);
        QCOMPARE(state().version, u"1.1"_s);
    }

    void nothingNewer_isUpToDate()
    {
        m_packages->newer.reset();
        m_session->check();
        QCOMPARE(state().stage, Stage::upToDate);
        QCOMPARE(state().version, u"1.0"_s);
    }

    void packageWithoutASource_isNotUpToDate()
    {
        m_packages->newer.reset();
        m_packages->installed->source.clear();
        m_packages->installed->isWithoutSource = true;
        m_session->check();
        QCOMPARE(state().failure, Failure::noSource);
    }

    void packageThatIsGone_isNotUpToDate()
    {
        m_packages->newer.reset();
        m_packages->heldAt = u"findInstalled"_s;
        m_session->check();
        m_packages->installed.reset();
        m_packages->goOn();
        QCOMPARE(state().failure, Failure::notRetrieved);
    }

    void updateOfAnotherSource_isRefused()
    {
        m_packages->newer->source = u"elsewhere"_s;
        m_session->check();
        QCOMPARE(state().failure, Failure::noSource);
        QCOMPARE(state().details, u"tovla@1.1, but this version came from home."_s);
        QVERIFY(!m_packages->asked.contains(u"readReleaseNotes"_s));
    }

    void updateOfAnySource_isOffered_whereOursIsNotKnown()
    {
        m_packages->installed->source.clear();
        m_session->check();
        QCOMPARE(state().stage, Stage::available);
    }

    void updateThatIsHeldBack_isNotOffered()
    {
        m_packages->newer->isHeldBack = true;
        m_session->check();
        QCOMPARE(state().failure, Failure::notRetrieved);
        QCOMPARE(state().details, u"tovla@1.1 is held back by the package manager."_s);
    }

    void sameVersionBuiltAnew_isToldApartByThePackagesVersion()
    {
        m_packages->newer->version = u"1.0-2"_s;
        m_packages->newer->programVersion = u"1.0"_s;
        m_session->check();
        QCOMPARE(state().version, u"1.0-2"_s);
        m_session->install();
        QCOMPARE(state().stage, Stage::updated);
        QCOMPARE(state().version, u"1.0"_s);
    }

    void brokenSource_isTold_onlyWhereNothingNewerIsFound()
    {
        m_packages->outcomes[u"refreshSources"_s] = {Trouble::improperlySigned, u"because"_s};
        m_session->check();
        QCOMPARE(state().stage, Stage::available);
        m_packages->newer.reset();
        m_session->check();
        QCOMPARE(state().failure, Failure::improperlySigned);
        QCOMPARE(state().details, u"because"_s);
    }

    void missingNotes_areNoFailure()
    {
        m_packages->outcomes[u"readReleaseNotes"_s] = {Trouble::offline, u"because"_s};
        m_session->check();
        QCOMPARE(state().stage, Stage::available);
    }

    void failedCheck_data()
    {
        QTest::addColumn<Trouble>("trouble");
        QTest::addColumn<Failure>("failure");
        QTest::newRow("service") << Trouble::noService << Failure::noService;
        QTest::newRow("offline") << Trouble::offline << Failure::offline;
        QTest::newRow("busy") << Trouble::busy << Failure::busy;
        QTest::newRow("password") << Trouble::notAuthorised << Failure::notRetrieved;
        QTest::newRow("signature") << Trouble::improperlySigned << Failure::improperlySigned;
        QTest::newRow("download") << Trouble::notDownloaded << Failure::notRetrieved;
        QTest::newRow("other") << Trouble::other << Failure::notRetrieved;
    }

    void failedCheck()
    {
        QFETCH(const Trouble, trouble);
        for (const QString &operation :
             {u"findPackageOf"_s, u"refreshSources"_s, u"findNewerVersion"_s}) {
            start();
            m_packages->newer.reset();
            m_packages->outcomes[operation] = {trouble, u"because"_s};
            m_session->check();
            QCOMPARE(state().stage, Stage::failed);
            QTEST(state().failure, "failure");
            QCOMPARE(state().details, u"because"_s);
        }
    }

    void whatChangesNothing_isGivenUpAtOnce_data()
    {
        QTest::addColumn<QString>("operation");
        for (const char *const operation : {"findPackageOf", "refreshSources", "findNewerVersion",
                                            "readReleaseNotes", "simulate"}) {
            QTest::newRow(operation) << QString::fromLatin1(operation);
        }
    }

    void whatChangesNothing_isGivenUpAtOnce()
    {
        QFETCH(const QString, operation);
        m_packages->heldAt = operation;
        m_session->check();
        m_session->install();
        QCOMPARE(m_packages->asked.constLast(), operation);
        QVERIFY(state().canCancel);
        m_session->cancel();
        QCOMPARE(state(), UpdateState());
        QVERIFY(!m_packages->isHeld());
        m_packages->heldAt.clear();
        m_session->check();
        QCOMPARE(state().stage, Stage::available);
    }

    void operationThatSomebodyElseStopped_endsQuietly()
    {
        m_packages->outcomes[u"refreshSources"_s] = {Trouble::cancelled, u"because"_s};
        m_session->check();
        QCOMPARE(state(), UpdateState());
    }

    void downloadOfACheck_isPartOfIt()
    {
        m_packages->heldAt = u"refreshSources"_s;
        m_session->check();
        m_packages->tell({.step = Step::downloading, .percentage = 10, .remainingSize = 7});
        QCOMPARE(state().stage, Stage::checking);
        QCOMPARE(state().percentage, 10);
        QCOMPARE(state().downloadSize, 0);
    }

    void answerAfterTheEndOfTheSession_isNotHeard()
    {
        m_packages->heldAt = u"refreshSources"_s;
        m_session->check();
        m_session.reset();
        QVERIFY(!m_packages->isHeld());
    }
};

QTEST_GUILESS_MAIN(UpdateSessionTest)
#include "UpdateSessionTest.moc"
