// SPDX-License-Identifier: MIT
#include "look/Accessible.h"

#include <QTest>
#include <QWidget>

class AccessibleTest final : public QObject
{
    Q_OBJECT

private slots:
    void role_isToldOfAWidget_thatTheToolkitHasToldOf()
    {
        QWidget widget;
        QCOMPARE(QAccessible::queryAccessibleInterface(&widget)->role(), QAccessible::Client);
        Accessible::setRole(widget, QAccessible::Dialog);
        QCOMPARE(QAccessible::queryAccessibleInterface(&widget)->role(), QAccessible::Dialog);
    }

    void hiddenWidget_isInvisible_whileItsNeighbourIsNot()
    {
        QWidget window;
        QWidget neighbour(&window);
        QWidget widget(&window);
        Accessible::hide(widget);
        window.show();
        const auto isInvisible = [](QWidget &each) {
            return bool(QAccessible::queryAccessibleInterface(&each)->state().invisible);
        };
        QVERIFY(isInvisible(widget));
        QVERIFY(!isInvisible(neighbour));
    }
};

QTEST_MAIN(AccessibleTest)
#include "AccessibleTest.moc"
