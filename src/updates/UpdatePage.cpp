// SPDX-License-Identifier: MIT
#include "updates/UpdatePage.h"

#include <QCoreApplication>

namespace
{
using Stage = UpdateState::Stage;
using Failure = UpdateState::Failure;
using Action = UpdatePage::Action;

class Texts
{
    Q_DECLARE_TR_FUNCTIONS(UpdatePage)
};

const QString programName = QStringLiteral("Tovla");

/// Package managers do not limit the length of names and versions.
QString cut(const QString &word)
{
    constexpr qsizetype longest = 40;
    return word.size() > longest ? word.first(longest - 1) + u'…' : word;
}

UpdatePage::Button okButton()
{
    return {Texts::tr("OK"), Action::close};
}

QString downloaded(const UpdateState &state, const QLocale &locale)
{
    if (state.downloadSize <= 0) {
        return {};
    }
    return Texts::tr("%1 of %2")
        .arg(locale.formattedDataSize(state.downloadedSize),
             locale.formattedDataSize(state.downloadSize));
}

UpdatePage underWay(const QString &headline, const UpdateState &state)
{
    UpdatePage page{.headline = headline, .hasBar = true, .percentage = state.percentage};
    page.secondary = {Texts::tr("Cancel"), Action::cancel};
    page.canCancel = state.canCancel;
    return page;
}

UpdatePage upToDate(const UpdateState &state)
{
    return {.headline = Texts::tr("You're up to date!"),
            .text = Texts::tr("%1 %2 is currently the newest version available.")
                        .arg(programName, cut(state.version)),
            .primary = okButton()};
}

/// Lists only as many names as fit in the window on any screen.
QString listed(const QStringList &names)
{
    constexpr qsizetype longest = 240;
    QString shown = cut(names.constFirst());
    qsizetype count = 1;
    while (count < names.size() && shown.size() + cut(names.at(count)).size() < longest) {
        shown += QStringLiteral(", ") + cut(names.at(count));
        ++count;
    }
    return count < names.size() ? Texts::tr("%1 and %2 more").arg(shown).arg(names.size() - count)
                                : shown;
}

UpdatePage available(const UpdateState &state, const QString &runningVersion)
{
    UpdatePage page{.headline = Texts::tr("A new version of %1 is available!").arg(programName),
                    .text = Texts::tr("%1 %2 is now available—you have %3. Would you like to "
                                      "install it now?")
                                .arg(programName, cut(state.version), runningVersion),
                    .releaseNotes = state.releaseNotes,
                    .primary = {Texts::tr("Install Update"), Action::install},
                    .secondary = {Texts::tr("Remind Me Later"), Action::close}};
    QStringList remarks;
    if (state.wasNotAuthorised) {
        remarks.append(Texts::tr("Authorisation was not given."));
    }
    if (!state.otherPackages.isEmpty()) {
        remarks.append(
            Texts::tr("These packages will change too: %1").arg(listed(state.otherPackages)));
    }
    page.remark = remarks.join(u'\n');
    return page;
}

UpdatePage restartable(const QString &headline, const QString &text)
{
    return {.headline = headline,
            .text = text,
            .primary = {Texts::tr("Restart Now"), Action::restart},
            .secondary = {Texts::tr("Later"), Action::close}};
}

QString failureText(Failure failure, const QString &runningVersion)
{
    switch (failure) {
    case Failure::noSource:
        return Texts::tr("Your system does not follow a software source for %1, so newer versions "
                         "cannot be found.")
            .arg(programName);
    case Failure::noService:
        return Texts::tr("The system's update service is not available. Use your software manager "
                         "to update %1.")
            .arg(programName);
    case Failure::offline:
        return Texts::tr("No network connection. Please try again when you are online.");
    case Failure::notRetrieved:
        return Texts::tr("An error occurred in retrieving update information. Please try again "
                         "later.");
    case Failure::improperlySigned:
        return Texts::tr("The update information is improperly signed, so it was not used.");
    case Failure::notDownloaded:
        return Texts::tr("The update could not be downloaded or is improperly signed. %1 %2 stays "
                         "installed.")
            .arg(programName, runningVersion);
    case Failure::busy:
        return Texts::tr("Other software is being installed, or an earlier installation was "
                         "interrupted. Please try again later.");
    default:
        return Texts::tr("An error occurred while installing the update. Please try again later.");
    }
}

UpdatePage failed(const UpdateState &state, const UpdatePage::Program &program)
{
    if (state.failure == Failure::notManaged) {
        return {.headline = Texts::tr("%1 can't be updated from here.").arg(programName),
                .text = Texts::tr("This copy was not installed by your system's package manager "
                                  "(it runs from %1). Update it the way it was installed.")
                            .arg(program.path),
                .primary = okButton()};
    }
    return {.headline = Texts::tr("Update Error!"),
            .text = failureText(state.failure, program.version),
            .details = state.details,
            .primary = okButton()};
}
} // namespace

UpdatePage UpdatePage::of(const UpdateState &state, const Program &program, const QLocale &locale)
{
    switch (state.stage) {
    case Stage::idle:
        return {};
    case Stage::checking:
        return underWay(Texts::tr("Checking for updates…"), state);
    case Stage::waitingForOthers:
        return underWay(Texts::tr("Waiting for other software changes…"), state);
    case Stage::waitingForAuthorisation:
        return underWay(Texts::tr("Waiting for authorisation…"), state);
    case Stage::downloading: {
        UpdatePage page = underWay(Texts::tr("Downloading update…"), state);
        page.text = downloaded(state, locale);
        return page;
    }
    case Stage::installing:
        return underWay(Texts::tr("Installing update…"), state);
    case Stage::available:
        return available(state, program.version);
    case Stage::upToDate:
        return upToDate(state);
    case Stage::updated:
        return restartable(Texts::tr("Update Installed"),
                           Texts::tr("%1 is now updated to version %2! Restart %1 to use it.")
                               .arg(programName, cut(state.version)));
    case Stage::replaced:
        return restartable(Texts::tr("A new version of %1 is ready!").arg(programName),
                           Texts::tr("Version %1 is already installed; this window is still "
                                     "version %2.")
                               .arg(cut(state.version), program.version));
    case Stage::failed:
        return failed(state, program);
    }
    return {};
}
