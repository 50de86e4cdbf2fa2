// SPDX-License-Identifier: MIT
#include "prompt/ParagraphLayout.h"

#include <QPlainTextEdit>
#include <QTest>
#include <QTextBlock>

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

private:
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
