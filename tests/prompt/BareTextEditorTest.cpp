// SPDX-License-Identifier: MIT
#include "prompt/BareTextEditor.h"

#include "look/Look.h"
#include "look/TextMenu.h"
#include "prompt/Coordinator.h"
#include "support/AppStateForTests.h"

#include <QClipboard>
#include <QInputMethod>
#include <QMenu>
#include <QMimeData>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{
/// A clipboard that counts the queries for its content.
class UnaskedClipboard final : public QMimeData
{
public:
    mutable int questions = 0;

    [[nodiscard]] QStringList formats() const override
    {
        ++questions;
        return {};
    }
    [[nodiscard]] bool hasFormat(const QString &) const override
    {
        ++questions;
        return false;
    }
};
} // namespace

class BareTextEditorTest final : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_height = 52;
        m_heights.clear();
        m_window = std::make_unique<QWidget>();
        m_window->resize(494, 289);
        m_editor = new BareTextEditor({.read = [this] { return m_height; },
                                       .write =
                                           [this](double height) {
                                               m_height = height;
                                               m_heights.append(height);
                                           }},
                                      m_window.get());
        TextMenu::serve(*m_editor, *m_capabilities.compositor);
        m_editor->resize(494, 289);
        m_window->show();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    }

    void empty_measuresOneLine_andTakesTheFocus()
    {
        QTRY_VERIFY(m_editor->hasFocus());
        const int line = lineHeight();
        QCOMPARE(m_height, qMax(52, line + 32));
        QVERIFY(m_heights.size() <= 1);
    }

    void font_thatChanges_isMeasuredAnew()
    {
        QTRY_VERIFY(m_editor->hasFocus());
        QFont larger = m_editor->font();
        larger.setPixelSize(40);
        m_editor->setFont(larger);
        QTRY_COMPARE(m_height, lineHeight() + 32.0);
    }

    void editorWithoutAWindow_measures_andTakesNoFocus()
    {
        QTRY_VERIFY(m_editor->hasFocus());
        m_height = 52;
        BareTextEditor alone({.read = [this] { return m_height; },
                              .write = [this](double height) { m_height = height; }},
                             nullptr);
        alone.setText(u"a\nb\nc"_s);
        QTRY_COMPARE(m_height, 3.0 * lineHeight() + 32);
        QVERIFY(m_editor->hasFocus());
    }

    void eachLine_addsItsHeight_onceEach()
    {
        QTRY_VERIFY(m_editor->hasFocus());
        const int line = lineHeight();
        m_heights.clear();
        QTest::keyClicks(m_editor, u"one"_s);
        QVERIFY(m_heights.isEmpty());
        QTest::keyClick(m_editor, Qt::Key_Return);
        QTest::keyClicks(m_editor, u"two"_s);
        QTest::keyClick(m_editor, Qt::Key_Return, Qt::ShiftModifier);
        QCOMPARE(m_heights, (QList<double>{2.0 * line + 32, 3.0 * line + 32}));
        QCOMPARE(m_editor->text(), u"one\ntwo\n"_s);
    }

    void keypadEnter_breaksTheLine()
    {
        QTest::keyClick(m_editor, Qt::Key_Enter, Qt::KeypadModifier);
        QCOMPARE(m_editor->text(), u"\n"_s);
    }

    void longPaste_reportsTheCap_andScrolls()
    {
        paste(u"line\n"_s.repeated(1000));
        QCOMPARE(m_height, 320.0);
        QVERIFY(m_editor->verticalScrollBar()->value() > 0);
        QVERIFY(!m_editor->verticalScrollBar()->isVisible());
        QVERIFY(m_editor->viewport()->rect().contains(m_editor->cursorRect()));
        QTest::keyClick(m_editor, Qt::Key_Home, Qt::ControlModifier);
        QCOMPARE(m_editor->verticalScrollBar()->value(), 0);
        QTest::keyClick(m_editor, Qt::Key_PageDown);
        QVERIFY(m_editor->verticalScrollBar()->value() > 0);
    }

    void shrinking_isReportedToo()
    {
        paste(u"a\nb\nc"_s);
        const double before = m_height;
        QTest::keyClick(m_editor, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(m_editor, Qt::Key_Delete);
        QCOMPARE(m_height, before - 2 * lineHeight());
    }

    void atTheFittingHeight_nothingScrolls()
    {
        paste(u"a\nb\nc"_s);
        m_editor->resize(494, static_cast<int>(m_height) - 32 + 1);
        QCOMPARE(m_editor->verticalScrollBar()->maximum(), 0);
    }

    void styledText_isPastedPlain()
    {
        auto *const styled = new QMimeData;
        styled->setHtml(u"<b>bold</b> word"_s);
        styled->setText(u"bold\r\nword\u2028x"_s);
        QGuiApplication::clipboard()->setMimeData(styled);
        m_editor->paste();
        QCOMPARE(m_editor->text(), u"bold\nword\nx"_s);
        QVERIFY(!m_editor->textCursor().charFormat().hasProperty(QTextFormat::FontWeight));
    }

    void htmlAlone_isPastedAsItsText()
    {
        auto *const styled = new QMimeData;
        styled->setHtml(u"<p>one</p><p>two</p>"_s);
        QGuiApplication::clipboard()->setMimeData(styled);
        m_editor->paste();
        QCOMPARE(m_editor->text(), u"one\ntwo"_s);
    }

    void everyCharacter_isKept()
    {
        const QString text
            = u"\u00A0\tx\u00A0 👩‍👩‍👧 e\u0301\u0085\uFEFF\u200F.\v\f\uFFFC"_s;
        paste(text);
        QCOMPARE(m_editor->text(), text);
        m_editor->selectAll();
        m_editor->copy();
        QCOMPARE(QGuiApplication::clipboard()->text(), text);
        QCOMPARE(QGuiApplication::clipboard()->mimeData()->formats(), QStringList{u"text/plain"_s});
    }

    void committedText_isPlainToo()
    {
        QInputMethodEvent commit;
        commit.setCommitString(u"a\u2028b\rc"_s + QChar(0));
        QCoreApplication::sendEvent(m_editor, &commit);
        QCOMPARE(m_editor->text(), u"a\nb\nc\uFFFD"_s);
    }

    void composing_hidesThePlaceholder()
    {
        m_editor->setPlaceholderText(u"question"_s);
        const QImage asking = m_editor->grab().toImage();
        QInputMethodEvent composing(u" "_s, {});
        QCoreApplication::sendEvent(m_editor, &composing);
        QVERIFY(m_editor->isComposing());
        QVERIFY(m_editor->grab().toImage() != asking);
    }

    void inputMethod_isToldACaretThatHasAPlace()
    {
        QTRY_VERIFY(m_editor->hasFocus());
        const auto told
            = [this] { return m_editor->inputMethodQuery(Qt::ImCursorRectangle).toRectF(); };
        QCOMPARE(told().size(), QSizeF(1, lineHeight()));
        const qreal before = told().x();
        QTest::keyClicks(m_editor, u"moved"_s);
        QVERIFY(told().x() > before + 20);
        QInputMethodEvent composing(u"composed"_s, {});
        QCoreApplication::sendEvent(m_editor, &composing);
        QCOMPARE(told().size(), QSizeF(1, lineHeight()));
    }

    void inputMethod_isToldWhenTheTextScrolls()
    {
        QTRY_VERIFY(m_editor->hasFocus());
        m_editor->setText(u"line\n"_s.repeated(40));
        m_editor->moveCursor(QTextCursor::Start);
        m_editor->ensureCursorVisible();
        QSignalSpy told(QGuiApplication::inputMethod(), &QInputMethod::cursorRectangleChanged);
        m_editor->verticalScrollBar()->setValue(1);
        QTRY_VERIFY(!told.isEmpty());
    }

    void composition_isRememberedUntilTheNextKey()
    {
        QTRY_VERIFY(m_editor->hasFocus());
        const auto compose = [this](const QString &preedit, const QString &committed) {
            QInputMethodEvent event(preedit, {});
            event.setCommitString(committed);
            QCoreApplication::sendEvent(m_editor, &event);
        };
        compose(u"ㅎ"_s, {});
        QVERIFY(!m_editor->forgetJustComposed());
        compose({}, u"하"_s);
        compose({}, {});
        QVERIFY(m_editor->forgetJustComposed());
        QVERIFY(!m_editor->forgetJustComposed());
        compose(u"ㅎ"_s, {});
        compose({}, u"하"_s);
        QTest::keyRelease(m_editor, Qt::Key_Space); // the key that chose the candidate
        QVERIFY(!m_editor->forgetJustComposed());
        compose({}, u"committed at once"_s);
        QVERIFY(!m_editor->forgetJustComposed());
    }

    void composition_staysWhereItIs_atAClick()
    {
        QTRY_VERIFY(m_editor->hasFocus());
        m_editor->setText(u"note "_s);
        m_editor->moveCursor(QTextCursor::End);
        QInputMethodEvent composing(u"한"_s, {});
        QCoreApplication::sendEvent(m_editor, &composing);
        QTest::mouseClick(m_editor->viewport(), Qt::LeftButton, {}, {1, 5});
        QVERIFY(!m_editor->isComposing());
        QCOMPARE(m_editor->text(), u"note 한"_s);
        QCOMPARE(m_editor->textCursor().position(), 0);
        QVERIFY(!m_editor->forgetJustComposed());
    }

    void composition_thatTheEngineCommitsToo_isThereOnce()
    {
        const auto send = [this](const QString &preedit, const QString &committed) {
            QInputMethodEvent event(preedit, {});
            event.setCommitString(committed);
            QCoreApplication::sendEvent(m_editor, &event);
        };
        send(u"한"_s, {});
        m_editor->endComposition();
        send({}, {});
        send({}, u"한"_s);
        QCOMPARE(m_editor->text(), u"한"_s);
        send({}, u"한"_s);
        QCOMPARE(m_editor->text(), u"한한"_s);
        send(u"한"_s, {});
        m_editor->endComposition();
        send(u"하"_s, {});
        send({}, u"한"_s);
        QCOMPARE(m_editor->text(), u"한한한한"_s);
        send(u"한"_s, {});
        m_editor->endComposition();
        QTest::keyClick(m_editor, Qt::Key_Space);
        send({}, u"한"_s);
        QCOMPARE(m_editor->text(), u"한한한한한 한"_s);
    }

    void menu_asksNobodyForTheClipboard()
    {
        auto *const unasked = new UnaskedClipboard;
        QGuiApplication::clipboard()->setMimeData(unasked);
        QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(5, 5),
                                m_editor->mapToGlobal(QPoint(5, 5)));
        QCoreApplication::sendEvent(m_editor, &event);
        auto *const menu = m_editor->findChild<QMenu *>();
        QVERIFY(menu && menu->isVisible());
        QCOMPARE(unasked->questions, 0);
        const auto actions = menu->actions();
        const auto paste = std::ranges::find(actions, u"Paste"_s, &QAction::text);
        QVERIFY(paste != actions.end() && (*paste)->isEnabled());
        (*paste)->trigger();
        QCOMPARE(unasked->questions, 1);
        QCOMPARE(m_editor->text(), QString());
    }

    void menu_offersWhatCanBeDone()
    {
        QTRY_VERIFY(m_editor->hasFocus());
        QTest::keyClicks(m_editor, u"note"_s);
        QTest::keyClick(m_editor, Qt::Key_A, Qt::ControlModifier);
        QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(5, 5),
                                m_editor->mapToGlobal(QPoint(5, 5)));
        QCoreApplication::sendEvent(m_editor, &event);
        QStringList shown;
        for (const QAction *const action : m_editor->findChild<QMenu *>()->actions()) {
            shown.append(action->isSeparator()
                             ? u"-"_s
                             : (action->isEnabled() ? u""_s : u"("_s) + action->text());
        }
        QCOMPARE(shown,
                 (QStringList{u"Undo"_s, u"(Redo"_s, u"-"_s, u"Cut"_s, u"Copy"_s, u"Paste"_s,
                              u"Delete"_s, u"-"_s, u"Select All"_s}));
    }

    void setText_onlyReplacesWhatDiffers()
    {
        paste(u"same"_s);
        QVERIFY(m_editor->document()->isUndoAvailable());
        m_editor->setText(u"same"_s);
        QVERIFY(m_editor->document()->isUndoAvailable());
        m_editor->setText(u"other"_s);
        QCOMPARE(m_editor->text(), u"other"_s);
    }

    void undo_takesAPasteBackAtOnce()
    {
        QTest::keyClicks(m_editor, u"a"_s);
        paste(u"b\nc\nd"_s);
        QTest::keyClick(m_editor, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(m_editor->text(), u"a"_s);
        QTest::keyClick(m_editor, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(m_editor->text(), u"ab\nc\nd"_s);
    }

    void tab_isText()
    {
        QTest::keyClick(m_editor, Qt::Key_Tab);
        QCOMPARE(m_editor->text(), u"\t"_s);
    }

    void caret_beforeALineFromTheRight_isInSight()
    {
        m_editor->setText(u"שלום"_s);
        QTest::keyClick(m_editor, Qt::Key_Home);
        QCOMPARE(m_editor->textCursor().positionInBlock(), 0);
        const QRect viewport = m_editor->viewport()->rect();
        QVERIFY(m_editor->caretRect().x() > viewport.width() - 3);
        QVERIFY(viewport.contains(m_editor->caretRect()));
    }

    void deadBand_writesNothing()
    {
        QTRY_VERIFY(m_editor->hasFocus());
        m_heights.clear();
        m_height += 0.5;
        QTest::keyClicks(m_editor, u"x"_s);
        QVERIFY(m_heights.isEmpty());
        m_height += 0.1;
        QTest::keyClicks(m_editor, u"x"_s);
        QCOMPARE(m_heights.size(), 1);
    }

    void placeholder_isWhereTheTextIs_toThePixel()
    {
        TestDesktop desktop;
        const Desktop capabilities = desktop.capabilities();
        Look look = ::look(*capabilities.appearance, ColorScheme::Light);
        look.primaryText = look.placeholder;
        m_editor->setLook(look);
        m_editor->clearFocus(); // no caret
        const QString question = u"What would you like to note about this moment?"_s;
        m_editor->setPlaceholderText(question);
        const QImage asked = m_editor->grab().toImage();
        m_editor->setText(question);
        QCOMPARE(m_editor->grab().toImage(), asked);
        m_editor->setText(u"x"_s);
        QVERIFY(m_editor->grab().toImage() != asked);
    }

private:
    void paste(const QString &text)
    {
        QGuiApplication::clipboard()->setText(text);
        m_editor->paste();
    }
    [[nodiscard]] int lineHeight() const { return m_editor->cursorRect().height(); }

    double m_height = 0;
    QList<double> m_heights;
    TestDesktop m_desktop;
    Desktop m_capabilities = m_desktop.capabilities();
    std::unique_ptr<QWidget> m_window;
    BareTextEditor *m_editor = nullptr;
};

QTEST_MAIN(BareTextEditorTest)
#include "BareTextEditorTest.moc"
