// SPDX-License-Identifier: MIT
#include "look/Squircle.h"

#include <QTest>
#include <QtMath>

#include <cmath>

namespace
{
/// The change of direction at each point of the first corner, from its start to the diagonal.
QList<qreal> turns(const QPainterPath &path)
{
    QList<qreal> angles;
    const auto point = [&path](int i) { return QPointF(path.elementAt(i)); };
    for (int i = 1; i < 12; ++i) {
        const QPointF in = point(i) - point(i - 1);
        const QPointF out = point(i + 1) - point(i);
        const qreal turn = std::atan2(out.y(), out.x()) - std::atan2(in.y(), in.x());
        const qreal length = (std::hypot(in.x(), in.y()) + std::hypot(out.x(), out.y())) / 2;
        angles.append(std::abs(std::remainder(turn, 2 * M_PI)) / length);
    }
    return angles;
}
} // namespace

class SquircleTest final : public QObject
{
    Q_OBJECT

private slots:
    void path_touchesEveryEdge_andStaysInside()
    {
        const QRectF rect(10, 20, 300, 200);
        const QRectF bounds = squirclePath(rect, 18).boundingRect();
        QVERIFY(std::abs(bounds.left() - rect.left()) < 1e-9);
        QVERIFY(std::abs(bounds.right() - rect.right()) < 1e-9);
        QVERIFY(std::abs(bounds.top() - rect.top()) < 1e-9);
        QVERIFY(std::abs(bounds.bottom() - rect.bottom()) < 1e-9);
    }

    void corner_passesWhereAnArcWould()
    {
        const qreal radius = 18;
        const QPainterPath path = squirclePath(QRectF(0, 0, 300, 200), radius);
        const qreal onDiagonal = radius * (1 - M_SQRT1_2);
        QVERIFY(!path.contains(QPointF(onDiagonal - 0.1, onDiagonal - 0.1)));
        QVERIFY(path.contains(QPointF(onDiagonal + 0.1, onDiagonal + 0.1)));
    }

    void curvature_growsSteadily()
    {
        const QList<qreal> curvature = turns(squirclePath(QRectF(0, 0, 300, 200), 18));
        // Almost zero at the edge, where an arc's curvature would jump to 1 / 18.
        QVERIFY(curvature.constFirst() < 0.3 / 18);
        for (qsizetype i = 1; i < curvature.size(); ++i) {
            QVERIFY2(curvature.at(i) > curvature.at(i - 1), qPrintable(QString::number(i)));
        }
    }

    void smallRect_isStillOneShape()
    {
        const QRectF rect(0, 0, 12, 8);
        const QPainterPath path = squirclePath(rect, 18);
        QCOMPARE(path.boundingRect(), rect);
        QVERIFY(path.contains(rect.center()));
    }
};

QTEST_GUILESS_MAIN(SquircleTest)
#include "SquircleTest.moc"
