// SPDX-License-Identifier: MIT
#pragma once

#include "support/AppStateForTests.h"
#include "support/FileFaults.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QTimeZone>

using namespace Qt::StringLiterals;

/// Saves a note in a folder that is new for each test.
class SaveFixture : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_place = std::make_unique<QTemporaryDir>();
        m_desktop = std::make_unique<TestDesktop>();
        m_state = std::make_unique<AppStateForTests>(*m_desktop);
        (*m_state)->setFolderPath(m_place->path());
    }

    void cleanup() { m_state.reset(); }

protected:
    /// 08:00 in Berlin.
    const QDateTime morning{QDate(2026, 11, 15), QTime(7, 0), QTimeZone::utc()};
    const QByteArray entry = "## 08:00\nnote\n";
    const QByteArray noFile = "(no file)";
    const QByteArray newFile = "# 2026-11-15\n\n" + entry;

    static QString dayName() { return u"2026-11-15.md"_s; }
    [[nodiscard]] QString path() const { return m_place->filePath(dayName()); }
    [[nodiscard]] std::string dayPath() const { return path().toStdString(); }
    void save() { m_state->savePrompt(u"note"_s, morning); }
    void write(const QByteArray &bytes) const
    {
        QFile file(path());
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    }
    [[nodiscard]] QByteArray day() const
    {
        QFile file(path());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : noFile;
    }
    [[nodiscard]] QStringList names() const
    {
        return QDir(m_place->path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }

    std::unique_ptr<QTemporaryDir> m_place;
    std::unique_ptr<TestDesktop> m_desktop;
    std::unique_ptr<AppStateForTests> m_state;
};
