// SPDX-License-Identifier: MIT
#include "look/AlertWindow.h"

#include "support/TestDesktop.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

class AlertWindowTest final : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_desktop.isComposited = false; // the window is its frame: no shadow around it
        m_over = std::make_unique<QWidget>();
        m_over->setGeometry(100, 100, 560, 104);
        m_over->show();
        m_alert = new AlertWindow(m_capabilities, u"Journal"_s,
                                  u"Could not save entry: <b>No space</b> left & so on"_s,
                                  m_over.get());
        m_alert->show();
    }

    void cleanup() { m_over.reset(); }

    void alert_isModal_andOverItsWindow()
    {
        QCOMPARE(m_alert->windowModality(), Qt::ApplicationModal);
        QCOMPARE(m_alert->windowTitle(), u"Journal"_s);
        QCOMPARE(m_alert->width(), 300);
        const QPoint distance = m_alert->geometry().center() - m_over->geometry().center();
        QVERIFY(distance.manhattanLength() <= 2);
        const auto *const accessible = QAccessible::queryAccessibleInterface(m_alert);
        QCOMPARE(accessible->role(), QAccessible::AlertMessage);
    }

    void texts_arePlain_theTitleBold()
    {
        const auto labels = m_alert->findChildren<QLabel *>();
        QCOMPARE(labels.size(), 2);
        QCOMPARE(labels.at(0)->text(), u"Journal"_s);
        QVERIFY(labels.at(0)->font().bold());
        QCOMPARE(labels.at(1)->text(), u"Could not save entry: <b>No space</b> left & so on"_s);
        for (const QLabel *const label : labels) {
            QCOMPARE(label->textFormat(), Qt::PlainText);
            QVERIFY(label->height() >= label->heightForWidth(label->width()));
        }
        QCOMPARE(m_alert->findChildren<QPushButton *>().size(), 1);
    }

    void keys_dismissIt_data()
    {
        QTest::addColumn<Qt::Key>("key");
        for (const auto key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space, Qt::Key_Escape}) {
            QTest::addRow("%d", key) << key;
        }
    }

    void keys_dismissIt()
    {
        QFETCH(const Qt::Key, key);
        const QSignalSpy dismissed(m_alert, &AlertWindow::dismissed);
        QTest::keyClick(m_alert->findChild<QPushButton *>(), key);
        QCOMPARE(dismissed.size(), 1);
        QVERIFY(!m_alert->isVisible());
    }

    void keyThatIsStillHeld_doesNot()
    {
        const QSignalSpy dismissed(m_alert, &AlertWindow::dismissed);
        QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::ControlModifier, u"\r"_s, true);
        QCoreApplication::sendEvent(m_alert->findChild<QPushButton *>(), &held);
        QCOMPARE(dismissed.size(), 0);
        QVERIFY(m_alert->isVisible());
    }

    void leftButton_movesIt()
    {
        QTest::mousePress(m_alert, Qt::RightButton, {}, QPoint(10, 10));
        QVERIFY(m_desktop.moved.isEmpty());
        QTest::mousePress(m_alert, Qt::LeftButton, {}, QPoint(10, 10));
        QCOMPARE(m_desktop.moved.size(), 1);
        QCOMPARE(m_desktop.moved.constFirst(), m_alert);
    }

    void withoutAWindowBelow_itIsCentred()
    {
        m_over->hide();
        AlertWindow alert(m_capabilities, u"Journal"_s, u"Could not save entry"_s, m_over.get());
        alert.show();
        const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
        const QPoint distance = alert.geometry().center() - screen.center();
        QVERIFY(distance.manhattanLength() <= 2);
    }

private:
    TestDesktop m_desktop;
    Desktop m_capabilities = m_desktop.capabilities();
    std::unique_ptr<QWidget> m_over;
    /// Goes with the window below.
    AlertWindow *m_alert = nullptr;
};

QTEST_MAIN(AlertWindowTest)
#include "AlertWindowTest.moc"
