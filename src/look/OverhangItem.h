// SPDX-License-Identifier: MIT
#pragma once

#include <QLayoutItem>
#include <QMargins>

/// Lays a widget out by what lies inside its overhang: what it draws around that, such as a focus
/// ring, takes no place and lies over the space between it and its neighbours.
class OverhangItem final : public QWidgetItem
{
public:
    /// @p widget must have its parent already; @p overhang is in logical pixels.
    OverhangItem(QWidget *widget, const QMargins &overhang);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSize() const override;
    [[nodiscard]] QSize maximumSize() const override;
    [[nodiscard]] int heightForWidth(int width) const override;
    [[nodiscard]] int minimumHeightForWidth(int width) const override;
    /// What lies inside the overhang, at the left of @p place and vertically in its middle.
    void setGeometry(const QRect &place) override;
    [[nodiscard]] QRect geometry() const override;

private:
    [[nodiscard]] QSize withoutOverhang(const QSize &size) const;
    [[nodiscard]] int heightWithoutOverhang(int height) const;

    QMargins m_overhang;
};
