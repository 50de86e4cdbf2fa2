// SPDX-License-Identifier: MIT
#pragma once

#include <QLayoutItem>
#include <QMargins>

/// Lays out a widget without its overhang: anything drawn there, such as a focus ring, takes no
/// space and overlaps the gap to its neighbours.
class OverhangItem final : public QWidgetItem
{
public:
    /// @p widget must already have a parent; @p overhang is in logical pixels.
    OverhangItem(QWidget *widget, const QMargins &overhang);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSize() const override;
    [[nodiscard]] QSize maximumSize() const override;
    [[nodiscard]] int heightForWidth(int width) const override;
    [[nodiscard]] int minimumHeightForWidth(int width) const override;
    /// Places the widget without its overhang at the edge of @p place where texts start, centred
    /// vertically.
    void setGeometry(const QRect &place) override;
    [[nodiscard]] QRect geometry() const override;

private:
    [[nodiscard]] QSize withoutOverhang(const QSize &size) const;
    [[nodiscard]] int heightWithoutOverhang(int height) const;

    QMargins m_overhang;
};
