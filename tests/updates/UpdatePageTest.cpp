// SPDX-License-Identifier: MIT
#include "updates/UpdatePage.h"

#include <QTest>

using namespace Qt::StringLiterals;

using Stage = UpdateState::Stage;
using Failure = UpdateState::Failure;
using Action = UpdatePage::Action;

Q_DECLARE_METATYPE(UpdateState::Failure)

namespace
{
UpdatePage page(const UpdateState &state)
{
    return UpdatePage::of(state, {u"1.0"_s, u"/usr/bin/tovla"_s}, QLocale::c());
}

UpdatePage pageOf(Failure failure)
{
    UpdateState state{.stage = Stage::failed, .failure = failure};
    state.details = u"what the engine says"_s;
    return page(state);
}
} // namespace

class UpdatePageTest final : public QObject
{
    Q_OBJECT

private slots:
    void work_hasABar_andCancelWhereItIsAllowed_data()
    {
        QTest::addColumn<int>("stage");
        QTest::addColumn<QString>("headline");
        const auto row = [](Stage stage, const QString &headline) {
            QTest::newRow(qPrintable(headline)) << int(stage) << headline;
        };
        row(Stage::checking, u"Checking for updates…"_s);
        row(Stage::waitingForOthers, u"Waiting for other software changes…"_s);
        row(Stage::waitingForAuthorisation, u"Waiting for authorisation…"_s);
        row(Stage::downloading, u"Downloading update…"_s);
        row(Stage::installing, u"Installing update…"_s);
    }

    void work_hasABar_andCancelWhereItIsAllowed()
    {
        QFETCH(const int, stage);
        UpdateState state{.stage = Stage(stage)};
        QTEST(page(state).headline, "headline");
        QVERIFY(page(state).hasBar);
        QVERIFY(!page(state).percentage);
        QCOMPARE(page(state).secondary, (UpdatePage::Button{u"Cancel"_s, Action::cancel}));
        QVERIFY(!page(state).canCancel);
        state.canCancel = true;
        state.percentage = 40;
        QVERIFY(page(state).canCancel);
        QCOMPARE(page(state).percentage, 40);
    }

    void download_tellsHowMuch()
    {
        UpdateState state{.stage = Stage::downloading};
        QCOMPARE(page(state).text, QString());
        state.downloadSize = qint64{2} * 1024 * 1024;
        state.downloadedSize = qint64{512} * 1024;
        QCOMPARE(page(state).text, u"512.00 KiB of 2.00 MiB"_s);
    }

    void newestVersion()
    {
        const UpdatePage upToDate = page({.stage = Stage::upToDate, .version = u"1.0"_s});
        QCOMPARE(upToDate.headline, u"You're up to date!"_s);
        QCOMPARE(upToDate.text, u"Tovla 1.0 is currently the newest version available."_s);
        QCOMPARE(upToDate.primary, (UpdatePage::Button{u"OK"_s, Action::close}));
        QVERIFY(!upToDate.hasBar);
    }

    void offer()
    {
        UpdateState state{.stage = Stage::available, .version = u"1.1"_s};
        state.releaseNotes = u"<b>notes</b>"_s;
        QCOMPARE(page(state).headline, u"A new version of Tovla is available!"_s);
        QCOMPARE(page(state).text,
                 u"Tovla 1.1 is now available—you have 1.0. Would you like to install it now?"_s);
        QCOMPARE(page(state).releaseNotes, u"<b>notes</b>"_s);
        QCOMPARE(page(state).primary, (UpdatePage::Button{u"Install Update"_s, Action::install}));
        QCOMPARE(page(state).secondary, (UpdatePage::Button{u"Remind Me Later"_s, Action::close}));
        QCOMPARE(page(state).remark, QString());
        state.otherPackages = QStringList{u"browser"_s, u"editor"_s};
        QCOMPARE(page(state).remark, u"These packages will change too: browser, editor"_s);
        state.wasNotAuthorised = true;
        QCOMPARE(
            page(state).remark,
            u"Authorisation was not given.\nThese packages will change too: browser, editor"_s);
        state.wasNotAuthorised = false;
        state.otherPackages = QStringList(50, u"ten-letter"_s);
        QVERIFY(page(state).remark.endsWith(u", ten-letter and 30 more"_s));
        state.otherPackages = {u"p"_s.repeated(500)};
        QVERIFY(page(state).remark.endsWith(u"pp…"_s));
        QVERIFY(page(state).remark.size() < 100);
    }

    void restart_isOffered()
    {
        const UpdatePage updated = page({.stage = Stage::updated, .version = u"1.1"_s});
        QCOMPARE(updated.headline, u"Update Installed"_s);
        QCOMPARE(updated.text, u"Tovla is now updated to version 1.1! Restart Tovla to use it."_s);
        const UpdatePage replaced = page({.stage = Stage::replaced, .version = u"1.1"_s});
        QCOMPARE(replaced.headline, u"A new version of Tovla is ready!"_s);
        QCOMPARE(replaced.text,
                 u"Version 1.1 is already installed; this window is still version 1.0."_s);
        for (const UpdatePage &each : {updated, replaced}) {
            QCOMPARE(each.primary, (UpdatePage::Button{u"Restart Now"_s, Action::restart}));
            QCOMPARE(each.secondary, (UpdatePage::Button{u"Later"_s, Action::close}));
        }
    }

    void failure_isTold_data()
    {
        QTest::addColumn<Failure>("failure");
        QTest::addColumn<QString>("text");
        QTest::newRow("source") << Failure::noSource
                                << u"Your system does not follow a software source for Tovla, so "
                                   "newer versions cannot be found."_s;
        QTest::newRow("service") << Failure::noService
                                 << u"The system's update service is not available. Use your "
                                    "software manager to update Tovla."_s;
        QTest::newRow("offline")
            << Failure::offline
            << u"No network connection. Please try again when you are online."_s;
        QTest::newRow("retrieval")
            << Failure::notRetrieved
            << u"An error occurred in retrieving update information. Please try again later."_s;
        QTest::newRow("signature")
            << Failure::improperlySigned
            << u"The update information is improperly signed, so it was not used."_s;
        QTest::newRow("download") << Failure::notDownloaded
                                  << u"The update could not be downloaded or is improperly signed. "
                                     "Tovla 1.0 stays installed."_s;
        QTest::newRow("busy") << Failure::busy
                              << u"Other software is being installed, or an earlier installation "
                                 "was interrupted. Please try again later."_s;
        QTest::newRow("installation")
            << Failure::notInstalled
            << u"An error occurred while installing the update. Please try again later."_s;
    }

    void failure_isTold()
    {
        QFETCH(const Failure, failure);
        const UpdatePage failed = pageOf(failure);
        QCOMPARE(failed.headline, u"Update Error!"_s);
        QTEST(failed.text, "text");
        QCOMPARE(failed.details, u"what the engine says"_s);
        QCOMPARE(failed.primary, (UpdatePage::Button{u"OK"_s, Action::close}));
    }

    void copyThatIsNotManaged_isNoError()
    {
        const UpdatePage notManaged = pageOf(Failure::notManaged);
        QCOMPARE(notManaged.headline, u"Tovla can't be updated from here."_s);
        QCOMPARE(notManaged.text,
                 u"This copy was not installed by your system's package manager (it runs from "
                 "/usr/bin/tovla). Update it the way it was installed."_s);
        QCOMPARE(notManaged.details, QString());
    }
};

QTEST_GUILESS_MAIN(UpdatePageTest)
#include "UpdatePageTest.moc"
