// SPDX-License-Identifier: MIT
#include "look/TextMenu.h"

#include "support/TestDesktop.h"

#include <QAction>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QTest>
#include <QTextEdit>

using namespace Qt::StringLiterals;

namespace
{
/// Chooses @p item, or fails.
void choose(QWidget &text, const QString &item)
{
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(5, 5),
                            text.mapToGlobal(QPoint(5, 5)));
    QCoreApplication::sendEvent(&text, &event);
    auto *const menu = text.findChild<QMenu *>();
    QVERIFY(menu);
    for (QAction *const action : menu->actions()) {
        if (action->text() == item && action->isEnabled()) {
            action->trigger();
            delete menu;
            return;
        }
    }
    QFAIL(qPrintable(u"cannot choose %1"_s.arg(item)));
}
} // namespace

class TextMenuTest final : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_note = std::make_unique<QPlainTextEdit>(u"one two"_s);
        m_number = std::make_unique<QLineEdit>(u"60"_s);
        TextMenu::serve(*m_note, *m_capabilities.compositor);
        TextMenu::serve(*m_number, *m_capabilities.compositor);
        m_note->show();
        m_number->show();
    }

    void note_isCutPastedAndDeleted()
    {
        choose(*m_note, u"Select All"_s);
        choose(*m_note, u"Cut"_s);
        QCOMPARE(m_note->toPlainText(), QString());
        QCOMPARE(QGuiApplication::clipboard()->text(), u"one two"_s);
        choose(*m_note, u"Paste"_s);
        choose(*m_note, u"Paste"_s);
        QCOMPARE(m_note->toPlainText(), u"one twoone two"_s);
        choose(*m_note, u"Select All"_s);
        choose(*m_note, u"Delete"_s);
        QCOMPARE(m_note->toPlainText(), QString());
        choose(*m_note, u"Undo"_s);
        QCOMPARE(m_note->toPlainText(), u"one twoone two"_s);
        choose(*m_note, u"Redo"_s);
        QCOMPARE(m_note->toPlainText(), QString());
    }

    void number_isCutPastedAndDeleted()
    {
        choose(*m_number, u"Select All"_s);
        choose(*m_number, u"Copy"_s);
        QCOMPARE(QGuiApplication::clipboard()->text(), u"60"_s);
        choose(*m_number, u"Delete"_s);
        QCOMPARE(m_number->text(), QString());
        choose(*m_number, u"Paste"_s);
        QCOMPARE(m_number->text(), u"60"_s);
        choose(*m_number, u"Select All"_s);
        choose(*m_number, u"Cut"_s);
        QCOMPARE(m_number->text(), QString());
        choose(*m_number, u"Undo"_s);
        QCOMPARE(m_number->text(), u"60"_s);
        choose(*m_number, u"Redo"_s);
        QCOMPARE(m_number->text(), QString());
    }

    void textThatCannotBeEdited_isOnlyCopied() const
    {
        QTextEdit notes(u"what is new"_s);
        notes.setReadOnly(true);
        TextMenu::serve(notes, *m_capabilities.compositor);
        notes.show();
        choose(notes, u"Select All"_s);
        choose(notes, u"Copy"_s);
        QCOMPARE(QGuiApplication::clipboard()->text(), u"what is new"_s);
        QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(5, 5),
                                notes.mapToGlobal(QPoint(5, 5)));
        QCoreApplication::sendEvent(&notes, &event);
        QStringList items;
        for (const QAction *const action : notes.findChild<QMenu *>()->actions()) {
            items.append(action->text());
        }
        QCOMPARE(items, (QStringList{u"Copy"_s, QString(), u"Select All"_s}));
    }

private:
    TestDesktop m_desktop;
    Desktop m_capabilities = m_desktop.capabilities();
    std::unique_ptr<QPlainTextEdit> m_note;
    std::unique_ptr<QLineEdit> m_number;
};

QTEST_MAIN(TextMenuTest)
#include "TextMenuTest.moc"
