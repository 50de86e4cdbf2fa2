// SPDX-License-Identifier: MIT
#include "platform/linux/packagekit/DebianChangelog.h"

#include <QTest>

using namespace Qt::StringLiterals;

class DebianChangelogTest final : public QObject
{
    Q_OBJECT

private slots:
    void releaseNotes_data()
    {
        QTest::addColumn<QString>("changelog");
        QTest::addColumn<QString>("notes");
        const QString newest = u"tovla (1.1) stable; urgency=medium\n\n * New bells, and\n"
                               "   drums * horns.\n * Mended.\n\n"
                               " -- A <a@b.org>  Sun, 15 Nov 2026 10:00:00 +0000\n"_s;
        const QString before = u"tovla (1:1.0.5-2~x) stable; urgency=low\n\n  * New whistles.\n"_s;
        QTest::newRow("one version") << newest << u"• New bells, and drums * horns.\n• Mended."_s;
        QTest::newRow("several") << newest + u'\n' + before
                                 << u"1.1\n• New bells, and drums * horns.\n• Mended.\n\n"
                                    "1:1.0.5-2~x\n• New whistles."_s;
        QTest::newRow("no items") << u"tovla (1.1) stable; urgency=medium"_s << QString();
        const QString other = u"- New (1.1) bells;\n  loud"_s;
        QTest::newRow("another format") << other << other;
        QTest::newRow("empty") << QString() << QString();
    }

    void releaseNotes()
    {
        QFETCH(const QString, changelog);
        QTEST(releaseNotesOfDebianChangelog(changelog), "notes");
    }
};

QTEST_GUILESS_MAIN(DebianChangelogTest)
#include "DebianChangelogTest.moc"
