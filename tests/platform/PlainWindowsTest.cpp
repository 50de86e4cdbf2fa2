// SPDX-License-Identifier: MIT
#include "platform/generic/PlainWindows.h"

#include <QTest>
#include <QWidget>

namespace
{
class Draggable final : public QWidget
{
public:
    Draggable()
        : QWidget(nullptr, Qt::FramelessWindowHint)
    {
        setGeometry(100, 200, 300, 80);
        show();
    }

protected:
    void mousePressEvent(QMouseEvent *) override { PlainWindows().startMove(*this); }
};
} // namespace

/// On a display without a window manager, which can move no window for us.
class PlainWindowsTest final : public QObject
{
    Q_OBJECT

private slots:
    void window_followsThePointer_untilItIsLetGo()
    {
        Draggable window;
        QTest::mousePress(&window, Qt::LeftButton, {}, QPoint(20, 10));
        moveTo(window, QPoint(120, 210));
        QCOMPARE(window.pos(), QPoint(100, 200));
        moveTo(window, QPoint(150, 190));
        QCOMPARE(window.pos(), QPoint(130, 180));
        moveTo(window, QPoint(90, 250));
        QCOMPARE(window.pos(), QPoint(70, 240));
        QTest::mouseRelease(&window, Qt::LeftButton, {}, QPoint(20, 10));
        moveTo(window, QPoint(200, 200));
        QCOMPARE(window.pos(), QPoint(70, 240));
    }

    void secondDrag_beginsWhereTheFirstEnded()
    {
        Draggable window;
        for (int round = 1; round <= 2; ++round) {
            QTest::mousePress(&window, Qt::LeftButton, {}, QPoint(20, 10));
            const QPoint pointer = window.pos() + QPoint(20, 10);
            moveTo(window, pointer);
            moveTo(window, pointer + QPoint(7, 3));
            QTest::mouseRelease(&window, Qt::LeftButton, {}, QPoint(20, 10));
            QCOMPARE(window.pos(), QPoint(100, 200) + round * QPoint(7, 3));
        }
    }

    void hiddenWindow_isLetGo()
    {
        Draggable window;
        QTest::mousePress(&window, Qt::LeftButton, {}, QPoint(20, 10));
        moveTo(window, QPoint(120, 210));
        window.hide();
        moveTo(window, QPoint(150, 250));
        QCOMPARE(window.pos(), QPoint(100, 200));
    }

private:
    /// @p pointer is on the screen.
    static void moveTo(QWidget &window, const QPoint &pointer)
    {
        QMouseEvent event(QEvent::MouseMove, pointer - window.pos(), pointer, Qt::NoButton,
                          Qt::LeftButton, {});
        QCoreApplication::sendEvent(&window, &event);
    }
};

QTEST_MAIN(PlainWindowsTest)
#include "PlainWindowsTest.moc"
