// SPDX-License-Identifier: MIT
#include "support/PromptFixture.h"

#include <QResizeEvent>

#include <algorithm>

namespace
{
/// The heights that a window is given, without repetitions.
class Heights final : public QObject
{
public:
    explicit Heights(QObject &window) { window.installEventFilter(this); }

    QList<int> seen;

    [[nodiscard]] bool areBetween(int low, int high) const
    {
        return std::ranges::any_of(seen, [=](int height) { return low < height && height < high; });
    }

private:
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Resize) {
            seen.append(static_cast<QResizeEvent *>(event)->size().height());
        }
        return false;
    }
};
} // namespace

class PromptGrowthTest final : public PromptFixture
{
    Q_OBJECT

private slots:
    void growsDownward_toTheCap()
    {
        open();
        const QPoint place = window()->pos();
        int before = window()->height();
        QTest::keyClick(editor(), Qt::Key_Return);
        const int line = editor()->cursorRect().height();
        QTRY_COMPARE(window()->height(), before + line);
        before = window()->height();
        paste(u"x\n"_s.repeated(100));
        QTRY_COMPARE(window()->height(), 28 + 344);
        QCOMPARE(window()->pos(), place);
        QCOMPARE(window()->width(), 560);
        QTest::keyClick(editor(), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(editor(), Qt::Key_Delete);
        QTRY_COMPARE(window()->height(), before - line);
        QCOMPARE(window()->pos(), place);
    }

    void animatedGrowth_endsAtTheLastHeightAskedFor()
    {
        m_desktop->wantsReducedMotion = false;
        open();
        QVERIFY(QTest::qWaitForWindowExposed(window()));
        const int before = window()->height();
        const int line = editor()->cursorRect().height();
        QTest::keyClick(editor(), Qt::Key_Return);
        QCoreApplication::processEvents();
        QTest::keyClick(editor(), Qt::Key_Return);
        QTest::keyClick(editor(), Qt::Key_Return);
        QTRY_COMPARE(window()->height(), before + 3 * line);
        QTest::keyClick(editor(), Qt::Key_Backspace);
        QTRY_COMPARE(window()->height(), before + 2 * line);
    }

    void growth_isAnimated_unlessTheUserWantsLessMotion_data()
    {
        QTest::addColumn<bool>("wantsReducedMotion");
        QTest::newRow("animated") << false;
        QTest::newRow("at once") << true;
    }

    void growth_isAnimated_unlessTheUserWantsLessMotion()
    {
        QFETCH(const bool, wantsReducedMotion);
        m_desktop->wantsReducedMotion = wantsReducedMotion;
        open();
        const int before = window()->height();
        const int after = before + 5 * editor()->cursorRect().height();
        const Heights heights(*window());
        paste(u"\n"_s.repeated(5));
        QTRY_COMPARE(window()->height(), after);
        QCOMPARE(heights.areBetween(before, after), !wantsReducedMotion);
    }

    void card_opensAtItsHeight_withoutGrowing()
    {
        m_desktop->wantsReducedMotion = false;
        (*m_state)->showPrompt();
        const int opened = window()->height();
        const Heights heights(*window());
        QVERIFY(QTest::qWaitForWindowActive(window()));
        QTRY_COMPARE(window()->height(), 28 + 24 + qMax(52, editor()->cursorRect().height() + 32));
        QVERIFY(!heights.areBetween(opened, window()->height()));
    }
};

QTEST_MAIN(PromptGrowthTest)
#include "PromptGrowthTest.moc"
