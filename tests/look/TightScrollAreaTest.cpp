// SPDX-License-Identifier: MIT
#include "look/TightScrollArea.h"

#include "look/ControlStyle.h"

#include <QGuiApplication>
#include <QLineEdit>
#include <QScreen>
#include <QScrollBar>
#include <QTest>
#include <QVBoxLayout>

namespace
{
/// Counts how often a widget is shown.
class Shows final : public QObject
{
public:
    int count = 0;

private:
    bool eventFilter(QObject *, QEvent *event) override
    {
        count += event->type() == QEvent::Show ? 1 : 0;
        return false;
    }
};
} // namespace

class TightScrollAreaTest final : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_window = std::make_unique<QWidget>();
        auto *const layout = new QVBoxLayout(m_window.get());
        layout->setContentsMargins({});
        layout->setSizeConstraint(QLayout::SetFixedSize);
        m_content = new QWidget;
        m_fields = new QVBoxLayout(m_content);
        m_area = new TightScrollArea(m_content, m_window.get());
        layout->addWidget(m_area);
    }

    void cleanup() { m_window.reset(); }

    void shortContent_isShownWhole()
    {
        addFields(3);
        show();
        QCOMPARE(m_window->size(), m_content->sizeHint());
        QCOMPARE(m_area->viewport()->size(), m_content->size());
        QVERIFY(!m_area->verticalScrollBar()->isVisible());
        addFields(1);
        QTRY_COMPARE(m_window->size(), m_content->sizeHint());
    }

    void growingContent_showsNoBar()
    {
        addFields(3);
        show();
        Shows shows;
        m_area->verticalScrollBar()->installEventFilter(&shows);
        addFields(1);
        QTRY_COMPARE(m_window->size(), m_content->sizeHint());
        QCOMPARE(shows.count, 0);
    }

    void longContent_fitsTheScreen_andScrolls()
    {
        addFields(100);
        show();
        const int screen = QGuiApplication::primaryScreen()->availableGeometry().height();
        QVERIFY(m_window->height() < screen);
        QVERIFY(m_window->height() > screen / 2);
        QCOMPARE(m_window->width(), m_content->sizeHint().width());
        QVERIFY(m_area->verticalScrollBar()->isVisible());
        // The bar is over the content.
        QCOMPARE(m_area->viewport()->width(), m_window->width());
    }

    void control_scrollsIntoSight_withTheFocus()
    {
        addFields(100);
        show();
        const auto fields = m_content->findChildren<QLineEdit *>();
        QVERIFY(!isInSight(*fields.constLast()));
        fields.constLast()->setFocus();
        QTRY_VERIFY(isInSight(*fields.constLast()));
        fields.constFirst()->setFocus();
        QTRY_VERIFY(isInSight(*fields.constFirst()));
    }

    void bar_isThin_andScrollsWhereItIsHeld()
    {
        addFields(100);
        show();
        QScrollBar *const bar = m_area->verticalScrollBar();
        QCOMPARE(bar->width(), 10);
        const QImage drawn = bar->grab().toImage();
        QVERIFY(drawn.pixelColor(3, 12) != drawn.pixelColor(3, bar->height() - 12));
        QTest::mousePress(bar, Qt::LeftButton, {}, QPoint(3, 12));
        QTest::mouseMove(bar, QPoint(3, bar->height() - 4));
        QTest::mouseRelease(bar, Qt::LeftButton, {}, QPoint(3, bar->height() - 4));
        QCOMPARE(bar->value(), bar->maximum());
        QTest::mouseClick(bar, Qt::LeftButton, {}, QPoint(3, 4));
        QCOMPARE(bar->value(), bar->maximum() - bar->pageStep());
    }

private:
    void addFields(int count)
    {
        for (int i = 0; i < count; ++i) {
            m_fields->addWidget(new QLineEdit(m_content));
        }
    }

    void show()
    {
        m_area->verticalScrollBar()->setStyle(&m_style);
        m_window->show();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    }

    [[nodiscard]] bool isInSight(const QWidget &field) const
    {
        const QRect place(field.mapTo(m_area->viewport(), QPoint()), field.size());
        return m_area->viewport()->rect().contains(place);
    }

    std::unique_ptr<QWidget> m_window;
    ControlStyle m_style;
    QWidget *m_content = nullptr;
    QVBoxLayout *m_fields = nullptr;
    TightScrollArea *m_area = nullptr;
};

QTEST_MAIN(TightScrollAreaTest)
#include "TightScrollAreaTest.moc"
