// SPDX-License-Identifier: MIT
#pragma once

#include "look/Look.h"

#include <QWidget>

/// The coloured tile with a symbol on the left of a row. An unknown symbol leaves it empty.
class IconTile final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(IconTile)

public:
    static constexpr int side = 34;

    IconTile(QString icon, const Tint &tint, QWidget *parent);

    void setColorScheme(ColorScheme scheme);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QString m_icon;
    Tint m_tint;
    ColorScheme m_scheme = ColorScheme::Light;
};
