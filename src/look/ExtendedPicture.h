// SPDX-License-Identifier: MIT
#pragma once

#include <QMarginsF>
#include <QString>

#include <functional>

class QPainter;
class QRectF;

/// What is drawn around or in a rectangle and looks the same at every height but for its upper and
/// lower end. It is drawn once at a small height, cached, and extended by copying. Lengths are in
/// logical pixels.
struct ExtendedPicture {
    using Draw = std::function<void(QPainter &, const QRectF &)>;

    /// Pictures with the same name are the same.
    QString name;
    /// How far it is visible beyond the rectangle.
    QMarginsF around;
    /// How far from the upper and the lower edge of the rectangle the rows differ from each other.
    qreal end;

    /// Paints it for @p rect; @p draw draws it on a transparent picture.
    void paint(QPainter &painter, const QRectF &rect, const Draw &draw) const;
};
