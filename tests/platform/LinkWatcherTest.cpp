// SPDX-License-Identifier: MIT
#include "platform/linux/kernel/LinkWatcher.h"

#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

class LinkWatcherTest final : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        m_path = m_folder->filePath(u"localtime"_s);
    }

    void replacedLink_isSeen_everyTime()
    {
        link(m_path);
        watch();
        for (const qsizetype times : {1, 2, 3}) {
            replaceLink();
            QTRY_COMPARE(m_changes->size(), times);
        }
    }

    void removedLink_andItsReturn_areSeen()
    {
        link(m_path);
        watch();
        QVERIFY(QFile::remove(m_path));
        QTRY_COMPARE(m_changes->size(), 1);
        link(m_path);
        QTRY_COMPARE(m_changes->size(), 2);
        replaceLink();
        QTRY_COMPARE(m_changes->size(), 3);
    }

    void missingLink_isSeenWhenItComes_otherFilesAreNot()
    {
        watch();
        write(m_folder->filePath(u"other"_s));
        link(m_path);
        QTRY_COMPARE(m_changes->size(), 1);
    }

    void movedIn_isSeen()
    {
        watch();
        link(m_path + u"~"_s);
        QVERIFY(QFile::rename(m_path + u"~"_s, m_path));
        QTRY_COMPARE(m_changes->size(), 1);
    }

    void writtenFile_isSeen()
    {
        write(m_path);
        watch();
        write(m_path);
        QTRY_COMPARE(m_changes->size(), 1);
    }

    void otherFiles_doNotWakeTheProgram()
    {
        link(m_path);
        watch();
        write(m_folder->filePath(u"other"_s));
        write(m_folder->filePath(u"target"_s));
        replaceLink();
        QTRY_COMPARE(m_changes->size(), 1);
    }

    void missingFolder_isNoError()
    {
        m_path = m_folder->filePath(u"missing/localtime"_s);
        watch();
        QVERIFY(m_changes->isEmpty());
    }

    void cleanup()
    {
        m_changes.reset();
        m_watcher.reset();
    }

private:
    void watch()
    {
        m_watcher = std::make_unique<LinkWatcher>(m_path, nullptr);
        m_changes = std::make_unique<QSignalSpy>(m_watcher.get(), &LinkWatcher::changed);
    }
    void link(const QString &path) const
    {
        QVERIFY(QFile::link(m_folder->filePath(u"target"_s), path));
    }
    /// As timedatectl does: the new link takes the place of the old one in one step.
    void replaceLink() const
    {
        link(m_path + u"~"_s);
        QCOMPARE(std::rename(qPrintable(m_path + u"~"_s), qPrintable(m_path)), 0);
    }
    static void write(const QString &path)
    {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write("x"), 1);
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_path;
    std::unique_ptr<LinkWatcher> m_watcher;
    std::unique_ptr<QSignalSpy> m_changes;
};

QTEST_GUILESS_MAIN(LinkWatcherTest)
#include "LinkWatcherTest.moc"
