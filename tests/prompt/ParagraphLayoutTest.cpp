// SPDX-License-Identifier: MIT
#include "prompt/ParagraphLayout.h"

#include <QPlainTextEdit>
#include <QTest>
#include <QTextBlock>
#include <QTextBoundaryFinder>

using namespace Qt::StringLiterals;

class ParagraphLayoutTest final : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_editor = std::make_unique<QPlainTextEdit>();
        auto *const document = new QTextDocument(m_editor.get());
        document->setDocumentLayout(new ParagraphLayout(document));
        document->setDocumentMargin(0);
        m_editor->setDocument(document);
        m_editor->resize(494, 289);
        m_editor->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_editor.get()));
    }

    void cleanup() { m_editor.reset(); }

    void paragraph_standsAtTheEdgeItIsWrittenFrom()
    {
        const QString hebrew = u"שלום עולם"_s;
        m_editor->setPlainText(u"abc\n"_s + hebrew + u"\n12, "_s + hebrew + u" abc\nabc "_s
                               + hebrew);
        for (const int paragraph : {0, 3}) {
            QCOMPARE(lineOf(paragraph, 0).left(), 0.0);
        }
        for (const int paragraph : {1, 2}) {
            QCOMPARE(lineOf(paragraph, 0).right(), width());
        }
        m_editor->moveCursor(QTextCursor::End);
        m_editor->insertPlainText(u"\nש"_s);
        QCOMPARE(lineOf(4, 0).right(), width());
        m_editor->insertPlainText(u"ל"_s);
        QCOMPARE(lineOf(4, 0).right(), width());
    }

    void eachLine_ofAParagraphFromTheRight_isAtTheRight()
    {
        m_editor->setPlainText(u"שלום עולם "_s.repeated(40).trimmed());
        const int lines = m_editor->document()->firstBlock().layout()->lineCount();
        QVERIFY(lines > 3);
        for (int line = 0; line < lines; ++line) {
            QVERIFY(qAbs(lineOf(0, line).right() - width()) < 1);
        }
    }

    void giantWord_isBrokenAnywhere()
    {
        m_editor->setPlainText(u"start "_s + giantWord() + u"\n"_s + ordinaryWords());
        QVERIFY(isBrokenAnywhere());
        QVERIFY(wrapsAtWords(1));
    }

    void wordThatBecomesGiant_isBrokenAnywhere_andBack()
    {
        m_editor->setPlainText(ordinaryWords() + u"\nstart "_s);
        m_editor->moveCursor(QTextCursor::End);
        for (const QString &half : {giantWord().first(3000), giantWord().sliced(3000)}) {
            QVERIFY(!isBrokenAnywhere(1));
            m_editor->insertPlainText(half);
        }
        QVERIFY(isBrokenAnywhere(1));
        QVERIFY(wrapsAtWords(0));
        m_editor->insertPlainText(u"a"_s);
        QVERIFY(isBrokenAnywhere(1));
        m_editor->resize(400, 289);
        QVERIFY(isBrokenAnywhere(1));
        m_editor->textCursor().deletePreviousChar();
        m_editor->undo();
        m_editor->undo();
        QVERIFY(!isBrokenAnywhere(1));
    }

    void longParagraph_withoutGiantWord_wrapsAtWords_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("words") << ordinaryWords().repeated(60);
        // No spaces, but each of these characters may start a line, except the full stop.
        QTest::newRow("Chinese") << u"今天天氣很好，我們去公園散步。"_s.repeated(600);
    }

    void longParagraph_withoutGiantWord_wrapsAtWords()
    {
        QFETCH(const QString, text);
        m_editor->setPlainText(text);
        QVERIFY(wrapsAtWords(0));
    }

private:
    static QString giantWord() { return u"giantword"_s.repeated(700); }
    static QString ordinaryWords()
    {
        return u"Long walk afterwards, the first in weeks. "_s.repeated(9);
    }

    /// Whether the paragraph "start …" has its first line filled up with the start of its word.
    [[nodiscard]] bool isBrokenAnywhere(int paragraph = 0) const
    {
        const double free = width() - lineOf(paragraph, 0).width();
        return free < 20;
    }
    [[nodiscard]] bool wrapsAtWords(int paragraph) const
    {
        (void)lineOf(paragraph, 0);
        const QTextBlock block = m_editor->document()->findBlockByNumber(paragraph);
        const QString text = block.text();
        QTextBoundaryFinder places(QTextBoundaryFinder::Line, text);
        const QTextLayout &layout = *block.layout();
        for (int line = 1; line < layout.lineCount(); ++line) {
            places.setPosition(layout.lineAt(line).textStart());
            if (!places.isAtBoundary()) {
                return false;
            }
        }
        return layout.lineCount() > 3;
    }

    [[nodiscard]] double width() const { return m_editor->viewport()->width(); }
    /// Where the letters of a line are, in the paragraph's coordinates.
    [[nodiscard]] QRectF lineOf(int paragraph, int line) const
    {
        const QTextBlock block = m_editor->document()->findBlockByNumber(paragraph);
        (void)m_editor->document()->documentLayout()->blockBoundingRect(block);
        return block.layout()->lineAt(line).naturalTextRect();
    }

    std::unique_ptr<QPlainTextEdit> m_editor;
};

QTEST_MAIN(ParagraphLayoutTest)
#include "ParagraphLayoutTest.moc"
