// SPDX-License-Identifier: MIT
#pragma once

#include "support/AppStateForTests.h"

#include <QAbstractButton>
#include <QClipboard>
#include <QFile>
#include <QGuiApplication>
#include <QPlainTextEdit>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

/// A state with a journal folder on a desktop made for tests, new for each test; open() opens its
/// prompt.
class PromptFixture : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_place = std::make_unique<QTemporaryDir>();
        m_desktop = std::make_unique<TestDesktop>();
        m_desktop->isComposited = false; // no shadow, so the window is exactly its frame
        m_state = std::make_unique<AppStateForTests>(*m_desktop);
        (*m_state)->setFolderPath(m_place->filePath(u"Journal"_s));
    }

    void cleanup() { m_state.reset(); }

protected:
    void open()
    {
        (*m_state)->showPrompt();
        QVERIFY(QTest::qWaitForWindowActive(window()));
        QCoreApplication::processEvents(); // the editor has measured its font
    }
    [[nodiscard]] QWidget *window() const { return m_state->promptWindow(); }
    [[nodiscard]] QPlainTextEdit *editor() const { return window()->findChild<QPlainTextEdit *>(); }
    [[nodiscard]] QAbstractButton *closeButton() const
    {
        return window()->findChild<QAbstractButton *>();
    }
    [[nodiscard]] QColor boxColor() const
    {
        const QWidget *box = editor()->parentWidget();
        const QPoint middleLeft = box->mapTo(window(), QPoint(4, box->height() / 2));
        return window()->grab().toImage().pixelColor(middleLeft).rgb();
    }
    void paste(const QString &text)
    {
        QGuiApplication::clipboard()->setText(text);
        editor()->paste();
    }
    [[nodiscard]] QByteArray day() const
    {
        QFile file((*m_state)->folderPath() + u"/2026-11-15.md"_s);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no file)");
    }

    std::unique_ptr<QTemporaryDir> m_place;
    std::unique_ptr<TestDesktop> m_desktop;
    std::unique_ptr<AppStateForTests> m_state;
};
