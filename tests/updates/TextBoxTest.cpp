// SPDX-License-Identifier: MIT
#include "updates/TextBox.h"

#include "support/Columns.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QTest>
#include <QTextBlock>
#include <QTextLayout>

using namespace Qt::StringLiterals;

class TextBoxTest final : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_box.resize(300, 132);
        m_box.show();
    }

    void items_hang_data()
    {
        QTest::addColumn<QString>("mark");
        QTest::newRow("bullet") << u"• "_s;
        QTest::newRow("dash") << u"- "_s;
        QTest::newRow("star") << u"* "_s;
    }

    void items_hang()
    {
        QFETCH(const QString, mark);
        m_box.showText(mark + u"word "_s.repeated(40));
        const QTextLayout &item = layoutOf(0);
        QVERIFY(item.lineCount() > 1);
        const qreal words = item.lineAt(0).cursorToX(static_cast<int>(mark.size()));
        QVERIFY(words > item.lineAt(0).x());
        QVERIFY(qAbs(item.lineAt(1).x() - words) <= 1);
    }

    void otherLines_doNot()
    {
        m_box.showText(u"• item\n"_s + u"word "_s.repeated(40) + u"\n-"_s
                       + u"word "_s.repeated(40));
        for (const int block : {1, 2}) {
            QVERIFY(layoutOf(block).lineCount() > 1);
            QCOMPARE(layoutOf(block).lineAt(1).x(), layoutOf(block).lineAt(0).x());
        }
    }

    void markup_isPlainText_alsoWhenCopied()
    {
        const QString text = u"• <b>bold</b>\n&amp;"_s;
        m_box.showText(text);
        QCOMPARE(m_box.toPlainText(), text);
        m_box.selectAll();
        m_box.copy();
        QCOMPARE(QGuiApplication::clipboard()->text(), text);
        QVERIFY(!QGuiApplication::clipboard()->mimeData()->hasHtml());
    }

    void caret_isInTheAccentColour()
    {
        m_box.showText(u"text"_s);
        QVERIFY(QTest::qWaitForWindowActive(&m_box));
        const QColor accent = m_box.palette().color(QPalette::Link);
        m_box.clearFocus();
        QCOMPARE(columnsOf(m_box, accent), 0);
        m_box.setFocus();
        QCOMPARE(columnsOf(m_box, accent), 1);
    }

private:
    [[nodiscard]] const QTextLayout &layoutOf(int block) const
    {
        return *m_box.document()->findBlockByNumber(block).layout();
    }

    TextBox m_box{u"Release Notes"_s, nullptr};
};

QTEST_MAIN(TextBoxTest)
#include "TextBoxTest.moc"
