// SPDX-License-Identifier: MIT
#include "support/UpdateSessionFixture.h"

#include <limits>

using namespace Qt::StringLiterals;

/// What can happen during an installation, independent of the package manager.
class UpdateSessionInstallTest final : public UpdateSessionFixture
{
    Q_OBJECT

private slots:
    void failedInstallation_data()
    {
        QTest::addColumn<Trouble>("trouble");
        QTest::addColumn<Failure>("failure");
        QTest::newRow("service") << Trouble::noService << Failure::noService;
        QTest::newRow("offline") << Trouble::offline << Failure::offline;
        QTest::newRow("busy") << Trouble::busy << Failure::busy;
        QTest::newRow("signature") << Trouble::improperlySigned << Failure::notDownloaded;
        QTest::newRow("download") << Trouble::notDownloaded << Failure::notDownloaded;
        QTest::newRow("other") << Trouble::other << Failure::notInstalled;
    }

    void failedInstallation()
    {
        QFETCH(const Trouble, trouble);
        for (const QString &operation : {u"simulate"_s, u"install"_s}) {
            start();
            m_packages->outcomes[operation] = {trouble, u"because"_s};
            m_session->check();
            m_session->install();
            QCOMPARE(state().stage, Stage::failed);
            QTEST(state().failure, "failure");
            QCOMPARE(state().details, u"because"_s);
        }
    }

    void installationThatFailsMidway()
    {
        m_packages->outcomes[u"install"_s] = {Trouble::other, u"half of it is there"_s};
        holdInstallation();
        m_packages->tell({.step = Step::downloading, .remainingSize = 500, .allowsCancel = true});
        m_packages->tell({.step = Step::working, .percentage = 50});
        QCOMPARE(state().stage, Stage::installing);
        QCOMPARE(state().percentage, 50);
        m_packages->installed.reset();
        m_packages->goOn();
        QCOMPARE(state().failure, Failure::notInstalled);
        QCOMPARE(state().details, u"half of it is there"_s);
        m_packages->tell({.step = Step::working, .percentage = 60});
        QCOMPARE(state().stage, Stage::failed);
        m_session->check();
        QCOMPARE(state().failure, Failure::notManaged);
    }

    void successThatDidNothing_isNone()
    {
        m_packages->installsNothing = true;
        m_session->check();
        m_session->install();
        QCOMPARE(state().failure, Failure::notInstalled);
    }

    void successThatLeftNothing_isNone()
    {
        m_packages->heldAt = u"findInstalled"_s;
        m_session->check();
        m_session->install();
        m_packages->installed.reset();
        m_packages->goOn();
        QCOMPARE(state().failure, Failure::notInstalled);
    }

    void passwordNotGiven_offersAgain()
    {
        m_packages->outcomes[u"install"_s] = {Trouble::notAuthorised, u"because"_s};
        m_session->check();
        m_session->install();
        QCOMPARE(state().stage, Stage::available);
        QVERIFY(state().wasNotAuthorised);
        QCOMPARE(state().releaseNotes, u"New bells."_s);
        m_packages->changes = {{u"editor"_s}};
        m_session->install();
        QCOMPARE(state().otherPackages, QStringList{u"editor"_s});
        QVERIFY(!state().wasNotAuthorised);
        m_packages->outcomes.clear();
        m_session->install();
        QCOMPARE(state().stage, Stage::updated);
    }

    void otherPackages_areShownFirst_andAskedForOnceMore()
    {
        m_packages->changes
            = {{u"tovla"_s}, {u"editor"_s}, {u"libnew"_s, true}, {u"browser"_s}, {u"editor"_s}};
        m_session->check();
        m_session->install();
        QCOMPARE(state().stage, Stage::available);
        QCOMPARE(state().otherPackages, (QStringList{u"browser"_s, u"editor"_s}));
        // The changes are no longer those that were shown.
        m_packages->changes.append({u"kernel"_s});
        m_session->install();
        QCOMPARE(state().stage, Stage::available);
        QCOMPARE(state().otherPackages.constLast(), u"kernel"_s);
        QVERIFY(!m_packages->asked.contains(u"install"_s));
        m_session->install();
        QCOMPARE(state().stage, Stage::updated);
    }

    void newDependencies_needNoQuestion()
    {
        m_packages->changes = {{u"libnew"_s, true}, {u"tovla"_s}};
        m_session->check();
        m_session->install();
        QCOMPARE(state().stage, Stage::updated);
    }

    void installation_isCancelledOnlyWhereThePackageManagerAllows()
    {
        m_packages->outcomes[u"install"_s] = {Trouble::cancelled, u"because"_s};
        holdInstallation();
        QVERIFY(!state().canCancel);
        m_session->cancel();
        QVERIFY(!m_packages->asked.contains(u"cancel"_s));
        m_packages->tell({.step = Step::downloading, .allowsCancel = true});
        m_session->cancel();
        QCOMPARE(m_packages->asked.constLast(), u"cancel"_s);
        // It may be too late to cancel, so the session waits for the outcome.
        QCOMPARE(state().stage, Stage::downloading);
        m_packages->goOn();
        QCOMPARE(state(), UpdateState());
    }

    void cancelThatCameTooLate_isASuccess()
    {
        holdInstallation();
        m_packages->tell({.step = Step::downloading, .allowsCancel = true});
        m_session->cancel();
        m_packages->goOn();
        QCOMPARE(state().stage, Stage::updated);
    }

    void lookAfterAnInstallation_isNotCancelled()
    {
        m_packages->heldAt = u"findInstalled"_s;
        m_session->check();
        m_session->install();
        QVERIFY(!state().canCancel);
        m_session->cancel();
        QCOMPARE(state().stage, Stage::installing);
    }

    void steps_areTold()
    {
        holdInstallation();
        m_packages->tell({.step = Step::waitingForOthers, .allowsCancel = true});
        QCOMPARE(state().stage, Stage::waitingForOthers);
        QVERIFY(state().canCancel);
        m_packages->tell({.step = Step::waitingForAuthorisation});
        QCOMPARE(state().stage, Stage::waitingForAuthorisation);
        QVERIFY(!state().canCancel);
    }

    void download_isMeasured_data()
    {
        QTest::addColumn<quint64>("first");
        QTest::addColumn<quint64>("then");
        QTest::addColumn<qint64>("size");
        QTest::addColumn<qint64>("downloaded");
        constexpr auto most = std::numeric_limits<qint64>::max();
        QTest::newRow("part") << quint64{4000} << quint64{1000} << qint64{4000} << qint64{3000};
        QTest::newRow("grows") << quint64{4000} << quint64{5000} << qint64{5000} << qint64{0};
        QTest::newRow("more than can be counted")
            << quint64{1} << (quint64{1} << 63U) << most << qint64{0};
        QTest::newRow("endless") << std::numeric_limits<quint64>::max() << quint64{1} << most
                                 << most - 1;
    }

    void download_isMeasured()
    {
        QFETCH(const quint64, first);
        QFETCH(const quint64, then);
        holdInstallation();
        m_packages->tell({.step = Step::downloading, .remainingSize = first});
        m_packages->tell({.step = Step::downloading, .remainingSize = then});
        QCOMPARE(state().stage, Stage::downloading);
        QTEST(state().downloadSize, "size");
        QTEST(state().downloadedSize, "downloaded");
    }

private:
    void holdInstallation()
    {
        m_packages->heldAt = u"install"_s;
        m_session->check();
        m_session->install();
        QCOMPARE(state().stage, Stage::installing);
    }
};

QTEST_GUILESS_MAIN(UpdateSessionInstallTest)
#include "UpdateSessionInstallTest.moc"
